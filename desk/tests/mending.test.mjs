// Mending in the desk, by pointer and by keyboard, and what becomes of the corrections.

import assert from "node:assert/strict";
import { test } from "node:test";
import { choose, enter, idle, pressButton, saved, selectText, testDesks, textOf, violations, writeInput } from "./browser.mjs";
import { herd, openHerd, stemOf } from "./small_herd.mjs";

const { withDesk } = testDesks();

const loop = ["X;Xan;m;25-01-2001;Y;B", "Y;Yde;m;25-01-2003;X;B"];

test("WhatStopsTheRunIsGivenUpInOnePressAndUndone", () => withDesk(async (page, desk) => {
  await openHerd(page, desk, ...loop, "Z;Zus;f;25-01-2x05;A;B");
  await page.click("#step-data");
  await page.evaluate(() => [...document.querySelectorAll(".question button")].find(({ textContent }) => /birthdate/.test(textContent)).click());
  await idle(page);
  await enter(page, "check");
  assert.ok(await page.$eval("#step-results", (button) => button.disabled));
  await page.click("#without-parents");
  await idle(page);
  assert.ok(await page.$("#without-parents") === null, "the loop is gone");
  assert.match(await textOf(page, "#corrections-sentence"), /Corrections applied: 1;/);
  assert.ok(!await page.$eval("#step-results", (button) => button.disabled));
  await page.click("#undo");
  await idle(page);
  assert.ok(await page.$("#without-parents") !== null);
  await page.keyboard.down("Control");
  await page.keyboard.press("y");
  await page.keyboard.up("Control");
  await idle(page);
  assert.ok(await page.$("#without-parents") === null);
  assert.match(await textOf(page, "#step"), /25-01-2x05/, "a date that cannot be read stops nothing, and is told");
  assert.deepEqual(await violations(page), []);
  await enter(page, "results");
  assert.match(await textOf(page, "#contains-corrections"), /: 1\./);
}));

test("ACellIsMendedTheListIsKeptAndDroppedTheYearAfter", () => withDesk(async (page, desk) => {
  await openHerd(page, desk, "F;Fay;f;25-01-1890;D;C", "G;Gus;m;25-01-2006;D;C");
  const stem = await stemOf(page);
  await enter(page, "check");
  await page.waitForSelector("#findings tbody tr");
  await page.click('button[aria-label="Show: Date of birth that several relatives contradict"]');
  await page.waitForSelector("#mend-0");
  await page.click("#mend-0");
  await page.waitForSelector(".mend input.meant");
  const cell = await page.waitForSelector('.mend input[aria-label="birthdate, line 7"]');
  await selectText(page, cell);
  await cell.type("25-01-2005");
  await page.keyboard.press("Enter");
  await page.waitForSelector("#corrections-sentence");
  await idle(page);
  assert.match(await textOf(page, "#corrections-sentence"), /applied: 1;/);
  assert.ok(!/relatives contradict/.test(await textOf(page, "#step")), "the finding is gone");
  const list = (await saved(desk, "Save the corrections", `${stem}_corrections.tsv`)).toString();
  assert.match(list, /F\tbirthdate\t25-01-1890\t25-01-2005\t\t\d{4}-\d\d-\d\d\n/);
  // The year after: F was mended in the office program, G differs.
  await page.click("#step-data");
  const next = herd("F;Fay;f;25-01-2005;D;C", "G;Gus;m;25-01-2007;D;C", "H;Han;m;25-01-2007;D;C");
  await choose(page, writeInput(desk, "next.csv", next), writeInput(desk, "herd_corrections.tsv", `${list}G\tbirthdate\t25-01-2006\t25-01-2005\t\t\n`));
  await enter(page, "settings");
  await page.select("#species", "sheep");
  await idle(page);
  await enter(page, "check");
  assert.match(await textOf(page, "#corrections-sentence"), /applied: 0; already mended in the export: 1;.*: 1\.$/);
  await page.click("#corrections summary");
  assert.match(await textOf(page, "#corrections"), /already mended in your office program.*differs now: "25-01-2007"/s);
}));

test("AProposalIsTakenInAllLinesAndAnAnimalLeftOut", () => withDesk(async (page, desk) => {
  await openHerd(page, desk, "NL-12345;Gea;f;25-01-2003;A;B", "H;Han;m;25-01-2006;D;nl12345", "I;Ida;f;25-01-2007;D;nl12345");
  await enter(page, "check");
  await page.click('button[aria-label^="Show: Id of a parent spelt otherwise"]');
  await page.waitForSelector("#mend-0");
  await page.click("#mend-0");
  await page.waitForSelector(".mend button.main");
  assert.equal(await textOf(page, ".mend button.main"), "Take NL-12345 in all 2 lines");
  await page.click(".mend button.main");
  await page.waitForSelector("#corrections-sentence");
  await idle(page);
  assert.match(await textOf(page, "#corrections-sentence"), /applied: 2;/);
  assert.ok(!/spelt otherwise/.test(await textOf(page, "#step")));
  await pressButton(page, "Undo");
  await idle(page);
  assert.match(await textOf(page, "#step"), /spelt otherwise/);
}));

const pressed = async (page, key) => {
  await page.keyboard.down("Control");
  await page.keyboard.press(key);
  await page.keyboard.up("Control");
  await idle(page);
};

test("AnIdOfAnotherAnimalIsRefusedInItsCell", () => withDesk(async (page, desk) => {
  await openHerd(page, desk, "F;Fay;f;25-01-1890;D;C", "G;Gus;m;25-01-2006;D;C");
  await enter(page, "check");
  await page.waitForSelector("[id^=mend-]");
  await page.click("[id^=mend-]");
  const cell = '.mend input[aria-label="id, line 7"]';
  await page.waitForSelector(cell);
  await selectText(page, cell);
  await page.type(cell, "G");
  await page.keyboard.press("Enter");
  await page.waitForSelector("#refused-why");
  await idle(page);
  assert.equal(await textOf(page, "#refused-why"), '"F": its id cannot become "G", which is that of another animal, "Gus" (line 8); not corrected');
  assert.ok(await page.$("#corrections-sentence") === null, "nothing was corrected");
  assert.deepEqual(await page.evaluate(() => [document.activeElement.getAttribute("aria-label"), document.activeElement.value, document.activeElement.getAttribute("aria-invalid")]),
    ["id, line 7", "G", "true"], "the focus stays in the cell, and what was typed in it");
  assert.deepEqual(await violations(page), []);
  await page.keyboard.press("Escape");
  await page.waitForFunction(() => document.querySelector("#refused-why") === null);
  await page.waitForSelector(cell);
  assert.equal(await page.$eval(cell, (input) => input.value), "F");
  await selectText(page, cell);
  await page.type(cell, "G");
  await page.keyboard.press("Enter");
  await page.waitForSelector("#refused-why");
  await idle(page);
  await pressButton(page, "F is the same animal as G");
  await page.waitForSelector("#corrections-sentence");
  await idle(page);
  assert.match(await textOf(page, "#corrections-sentence"), /applied: 1;/);
  assert.ok(await page.$("#refused-why") === null);
}));

test("ADateIsKeptAsTheColumnWritesItAndTheOfficeGetsWhatPeopleType", () => withDesk(async (page, desk) => {
  const lines = ["id;name;sex;birthdate;sire;dam", "A;Adam;m;36526;;", "B;Bea;f;36527;;", "C;Cor;m;37500;A;B", "D;Dot;f;37501;A;B", "E;Eef;f;38400;C;D", "F;Fay;f;13000;C;D"];
  await choose(page, writeInput(desk, "numbers.csv", lines.join("\n")), writeInput(desk, "numbers.answers", "--species sheep\n--dates serial-1900\n"));
  await enter(page, "check");
  await page.waitForSelector('button[aria-label^="Mend: F"]');
  await page.click('button[aria-label^="Mend: F"]');
  const cell = '.mend input[aria-label="birthdate, line 7"]';
  await page.waitForSelector(cell);
  assert.equal(await page.$eval(cell, (input) => input.parentElement.querySelector("small").textContent), "= 04-08-1935");
  const type = async (words) => {
    await selectText(page, cell);
    await page.type(cell, words);
    await page.keyboard.press("Enter");
    await idle(page);
  };
  await type("03-04-2006");
  await page.waitForSelector("#refused-why");
  assert.equal(await textOf(page, "#refused-why"), '"03-04-2006" may be two days: type 2006-04-03 or 2006-03-04.');
  await page.waitForSelector(cell);
  await type("2006-04-03");
  await page.waitForSelector("#corrections-sentence");
  await page.click("#corrections summary");
  assert.match(await textOf(page, "#corrections tbody tr"), /13000= 04-08-1935/);
  assert.equal(await page.$eval('#corrections input[aria-label^="Becomes: F"]', (input) => `${input.value} ${input.parentElement.querySelector("small").textContent}`), "38810 = 03-04-2006");
  assert.match(await page.$eval("#office-list tbody tr", (row) => row.textContent), /^Fdate of birth04-08-193503-04-2006$/);
}));

test("MendingByKeyboardAlone", () => withDesk(async (page, desk) => {
  await openHerd(page, desk, "F;Fay;f;25-01-1890;D;C", "G;Gus;m;25-01-2006;D;C");
  await enter(page, "check");
  await page.waitForSelector("[id^=mend-]");
  await page.focus("[id^=mend-]");
  await page.keyboard.press("Enter");
  await page.waitForSelector(".mend input.meant");
  assert.equal(await page.evaluate(() => document.activeElement.id.slice(0, 5)), "mend-", "the focus stays where it was");
  await page.keyboard.press("Tab");  // the animal
  await page.keyboard.press("Tab");
  await page.keyboard.press("Enter");  // the first press: make it unknown
  await page.waitForSelector("#corrections-sentence");
  await idle(page);
  assert.match(await textOf(page, "#corrections-sentence"), /applied: 1;/);
  assert.equal(await page.evaluate(() => document.activeElement.id), "undo");
  await pressed(page, "z");
  assert.equal(await textOf(page, "#corrections-sentence"), "No corrections.");
  await pressed(page, "y");
  assert.match(await textOf(page, "#corrections-sentence"), /applied: 1;/);
}));

test("FindingsAndTheListForTheOfficeAreSavedAsWorkbooks", () => withDesk(async (page, desk) => {
  await openHerd(page, desk, "F;Fay;f;25-01-1890;;", "G;Gus;m;25-01-2006;D;C");
  const stem = await stemOf(page);
  await enter(page, "check");
  const findings = await saved(desk, "Save the findings as a workbook (.xlsx)", `${stem}_check.xlsx`);
  await page.waitForSelector("[id^=mend-]");
  await page.click("[id^=mend-]");
  await page.waitForSelector(".mend button");
  await pressButton(page, "Make it unknown");
  await page.waitForSelector("#corrections-sentence");
  await idle(page);
  const office = await saved(desk, "Save the list for the office as a workbook (.xlsx)", `${stem}_office.xlsx`);
  // The desk itself reads them.
  await page.click("#step-data");
  const headings = async (name, bytes) => {
    await choose(page, writeInput(desk, name, bytes));
    return page.$$eval(".lines thead tr:last-child th", (cells) => cells.map((cell) => cell.textContent));
  };
  assert.deepEqual(await headings("office.xlsx", office), ["Id", "Field", "Was", "Becomes", "Why"]);
  assert.deepEqual(await page.$$eval(".lines tbody td", (cells) => cells.map((cell) => cell.textContent)), ["F", "date of birth", "25-01-1890", "", ""]);
  assert.deepEqual(await headings("check.xlsx", findings), ["line", "column", "id", "code", "severity", "text", "lines"]);
}));

test("ReasonsAreWrittenIntoTheListAndAnimalsAreLeftOut", () => withDesk(async (page, desk) => {
  await openHerd(page, desk, "F;Fay;f;25-01-1890;;", "G;Gus;m;25-01-2006;D;C");
  const stem = await stemOf(page);
  await enter(page, "check");
  await page.waitForSelector("[id^=mend-]");
  await page.click("[id^=mend-]");
  await page.waitForSelector(".mend tbody button");
  await page.click('.mend button[aria-label="Leave out: Line 7"]');
  await page.waitForSelector("#corrections-sentence");
  await idle(page);
  await page.click("#corrections summary");
  await page.type('#corrections input[aria-label^="Why: F"]', 'a "ghost"');
  await page.keyboard.press("Enter");
  await idle(page);
  assert.ok(await page.$eval("#corrections", (list) => list.open), "the list stays open");
  const list = (await saved(desk, "Save the corrections", `${stem}_corrections.tsv`)).toString();
  assert.match(list, /F\tleave out\tF \| Fay \| f \| 25-01-1890 \|  \|\t\ta "ghost"\t\d{4}-/);
  assert.deepEqual(await violations(page), []);
}));

test("CorrectionsThatWereNotSavedStayWhenAnotherExportIsOpened", () => withDesk(async (page, desk) => {
  await openHerd(page, desk, "F;Fay;f;25-01-1890;D;C", "G;Gus;m;25-01-2006;D;C");
  await enter(page, "check");
  await page.waitForSelector("[id^=mend-]");
  await page.click("[id^=mend-]");
  await page.waitForSelector(".mend button");
  await pressButton(page, "Make it unknown");
  await page.waitForSelector("#corrections-sentence");
  await idle(page);
  await page.click("#step-data");
  await choose(page, writeInput(desk, "next.csv", herd("F;Fay;f;25-01-1890;D;C")));
  assert.match(await textOf(page, "#former-corrections"), /herd\.csv have not been saved/);
  await pressButton(page, "Use them with this export");
  await idle(page);
  assert.match(await textOf(page, "#corrections-sentence"), /applied: 1;/);
  assert.ok(await page.$("#former-corrections") === null);
}));

test("ExportAnswersAndCorrectionsAreDroppedTogether", () => withDesk(async (page, desk) => {
  await choose(page, writeInput(desk, "herd.csv", herd("F;Fay;f;25-01-1890;D;C")), writeInput(desk, "herd.answers", "--species sheep\n"),
    writeInput(desk, "mended.tsv", "id\tfield\twas\tbecomes\twhy\twhen\nF\tbirthdate\t25-01-1890\t25-01-2005\t\t\nF\tweight\t1\t2\t\t\n"));
  assert.match(await textOf(page, "#corrections-sentence"), /applied: 1;/);
  assert.match(await textOf(page, "#step"), /"weight" is no field/);
  await enter(page, "results");
  assert.match(await textOf(page, "#contains-corrections"), /: 1\./);
  await page.click("#dutch");
  await idle(page);
  assert.match(await textOf(page, "#contains-corrections"), /^Correcties die in deze resultaten zitten/);
  await page.click("#step-data");
  assert.match(await textOf(page, "#corrections-sentence"), /^Toegepaste correcties: 1;/);
}));
