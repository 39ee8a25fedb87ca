// A herd that can be read at a glance, and how a test brings it into the desk.

import { choose, enter, idle, textOf, writeInput } from "./browser.mjs";

/** A herd of three generations; `lines` are added. */
export function herd(...lines) {
  return ["id;name;sex;birthdate;sire;dam", "A;Adam;m;25-01-2000;;", "B;Bea;f;25-01-2000;;", "C;Zo\u00eb;f;25-01-2002;A;B", "D;Dirk;m;25-01-2002;A;B",
    "E;Eef;f;25-01-2004;D;C", ...lines].join("\n");
}

/** Opens it in a desk, as sheep. */
export async function openHerd(page, desk, ...lines) {
  await choose(page, writeInput(desk, "herd.csv", herd(...lines)));
  await enter(page, "settings");
  await page.select("#species", "sheep");
  await idle(page);
}

/** What the names of files begin with, as the steer file has it. */
export async function stemOf(page) {
  await enter(page, "settings");
  return (await textOf(page, "#steer")).split(/\r?\n/)[1].replace(/\.txt$/, "");
}
