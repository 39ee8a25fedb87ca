// Populations as large as those of herdbooks of a country.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdtempSync, readFileSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { test } from "node:test";
import { choose, enter, idle, root, saved, testDesks } from "./browser.mjs";

const program = process.env.PEDIGREEWATCH ?? join(root, "build/release/pedigreewatch");
const makePopulation = process.env.MAKE_POPULATION ?? join(root, "build/release/bench/make_population");

const { withDesk } = testDesks();

test("ARunThatIsCancelledKeepsDataAndSettings", () => withDesk(async (page, desk) => {
  const folder = mkdtempSync(join(tmpdir(), "desk-large-"));
  try {
    execFileSync(makePopulation, ["bench", "200000", folder], { stdio: "ignore" });
    const name = readFileSync(join(folder, "pedigreewatch.ini"), "latin1").split(/\r?\n/)[1];
    await choose(page, join(folder, name));
    await enter(page, "settings");
    await page.select("#species", "dog");
    await idle(page);
    // Sires with many young that have no line of their own are asked about: they are animals.
    await page.evaluate(() => [...document.querySelectorAll(".question button")].at(-1)?.click());
    await idle(page);
    await page.click("#step-results");
    await page.waitForSelector("#busy:not([hidden])");
    await page.click("#cancel");
    await page.waitForSelector("#cancelled");
    await enter(page, "settings");
    assert.equal(await page.$eval("#species", (element) => element.value), "dog");
    await enter(page, "results", 300_000);
    assert.ok((await page.$$("#results-body svg")).length > 5);
  } finally {
    rmSync(folder, { recursive: true, force: true });
  }
}));

test("AMillionAnimalsGoThrough", () => withDesk(async (page, desk) => {
  const folder = mkdtempSync(join(tmpdir(), "desk-large-"));
  try {
    execFileSync(makePopulation, ["bench", "1000000", folder], { stdio: "ignore" });
    const name = readFileSync(join(folder, "pedigreewatch.ini"), "latin1").split(/\r?\n/)[1];
    await choose(page, join(folder, name), join(folder, "pedigreewatch.ini"));
    await enter(page, "results", 600_000);
    assert.ok((await page.$$("#results-body svg")).length > 5);
    const report = await saved(desk, "Save the report", name.replace(/txt$/, "out"));
    execFileSync(program, [], { cwd: folder, stdio: "ignore" });
    assert.ok(report.equals(readFileSync(join(folder, name.replace(/txt$/, "out")))));
  } finally {
    rmSync(folder, { recursive: true, force: true });
  }
}));
