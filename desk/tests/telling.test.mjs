// What the desk tells of its results: corrections that they contain, animals that have gone, what cannot be read, and
// what is printed of long tables.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { join } from "node:path";
import { test } from "node:test";
import { choose, enter, idle, isFirefox, onlyPrinted, pressButton, saved, selectText, testDesks, textOf, violations, writeInput } from "./browser.mjs";
import { openHerd, stemOf } from "./small_herd.mjs";

const { withDesk, openTestDesk } = testDesks();

const told = ["id;name;sex;birthdate;sire;dam;died", "A;Adam;m;25-01-2000;;;12-03-2021", "B;Bea;f;25-01-2000;;;", "C;Cas;m;25-01-2002;A;B;", "D;Dot;f;25-01-2002;A;B;01-02-2020",
  "O;O\u2019Hara;f;25-01-2003;C;B;"].join("\n");

async function openTold(page, desk) {
  await choose(page, writeInput(desk, "told.csv", told));
  await enter(page, "settings");
  await page.select("#species", "sheep");
  await idle(page);
}

async function take(page, search, name) {
  await page.type(`#${search}`, name);
  await page.waitForSelector(`#${search}-list li`);
  await page.click(`#${search}-list li`);
  await idle(page);
}

const isSeen = (page, selector) => page.$eval(selector, (element) => getComputedStyle(element).display !== "none");

test("WhatIsKeptAndPrintedSaysHowManyCorrectionsItContains", () => withDesk(async (page, desk) => {
  await openHerd(page, desk, "Z;Zus;f;25-01-2x05;A;B");
  await page.click("#step-data");
  await page.evaluate(() => [...document.querySelectorAll(".question button")].find(({ textContent }) => /birthdate/.test(textContent)).click());
  await idle(page);
  const stem = await stemOf(page);
  await enter(page, "check");
  await page.click('button[aria-label^="Go on without these dates"]');
  await idle(page);
  await enter(page, "results");
  const sentence = /Corrections that these results contain and your export does not: 1\./;
  assert.match(await textOf(page, "#contains-corrections"), sentence);
  assert.match(await textOf(page, "#print-head"), sentence);
  const inKept = "<strong>Corrections that these results contain and the export does not: 1.</strong>";
  assert.ok((await saved(desk, "Save the page", `${stem}.html`)).toString().includes(inKept));
  assert.match((await saved(desk, "Save the table by year", `${stem}_years.tsv`)).toString(), /\tcorrections_in_data\n.*\t1\n/);
  await page.click("#view-animals");
  await page.waitForSelector("#all-animals .press[data-animal]");
  await page.click("#all-animals .press[data-animal]");
  await page.waitForSelector("#card[open] #card-body strong");
  assert.equal(await textOf(page, "#card-body strong"), "Corrections that these results contain and the export does not: 1.");
  await page.click("#card-close");
  await enter(page, "breeding");
  assert.match(await textOf(page, "#contains-corrections"), sentence);
  // With the steer file and the data file it is known elsewhere too, and with other data it is not said.
  await enter(page, "settings");
  const steer = (await saved(desk, "Save the steer file", "pedigreewatch.ini")).toString(), data = await saved(desk, "Save the data file", `${stem}.txt`);
  assert.match(steer, /corrections=1 bytes=/);
  const other = await openTestDesk();
  try {
    const bring = async (bytes) => {
      await choose(other.page, writeInput(other, "pedigreewatch.ini", steer), writeInput(other, `${stem}.txt`, bytes));
      await enter(other.page, "results");
    };
    await bring(data);
    assert.match(await textOf(other.page, "#contains-corrections"), /: 1\./);
    await other.page.click("#step-data");
    await bring(Buffer.concat([data, Buffer.from("\n")]));
    assert.ok(await other.page.$("#contains-corrections") === null);
  } finally {
    await other.close();
  }
}));

test("OfAnAnimalThatHasGoneThatIsSaidWhereItIsChosen", () => withDesk(async (page, desk) => {
  await openTold(page, desk);
  await enter(page, "breeding");
  await take(page, "search-female", "Dot");
  assert.match(await textOf(page, "#chosen-female"), /no longer there \(died: 01-02-2020\)/);
  await take(page, "search-male", "Adam");
  assert.deepEqual(await page.$$eval(".gone-parent", (all) => all.map(({ textContent }) => textContent)),
    ["D is no longer there (died: 01-02-2020).", "A is no longer there (died: 12-03-2021)."]);
  assert.match(await textOf(page, "#offspring-f"), /25\.00/, "the choice is possible");
  for (const [search, name] of [["search-females", "Dot"], ["search-females", "Bea"], ["search-males", "Adam"]]) await take(page, search, name);
  await page.click("#compare-mates");
  await idle(page);
  assert.match(await textOf(page, "#mates-screen thead"), /A.*no longer there \(died: 12-03-2021\)/);
  assert.deepEqual(await page.$$eval("#mates-screen tbody th .gone", (all) => all.length), 1);
  assert.deepEqual(await violations(page), []);
  await page.click("#dutch");
  await idle(page);
  assert.match(await textOf(page, ".gone-parent"), /^D is er niet meer \(died: 01-02-2020\)\.$/);
}));

test("TheListOfAnimalsStillThereComesWithItsDataFile", () => withDesk(async (page, desk) => {
  await openTold(page, desk);
  const stem = await stemOf(page);
  const keep = async (label, name) => (await saved(desk, label, name)).toString();
  const [steer, data, list] = [await keep("Save the steer file", "pedigreewatch.ini"), await keep("Save the data file", `${stem}.txt`),
    await keep("Save the list of available animals", `${stem}_available.txt`)];
  assert.equal(list, "B\nC\nO\n");
  const files = (other) => [writeInput(other, "pedigreewatch.ini", steer), writeInput(other, `${stem}.txt`, data)];
  await page.click("#step-data");
  await choose(page, ...files(desk), writeInput(desk, `${stem}_available.txt`, list));
  await enter(page, "breeding");
  assert.match(await textOf(page, "#sire-ages"), /Only the 3 animals that are still there/);
  await take(page, "search-female", "Dot");
  assert.match(await textOf(page, "#chosen-female"), /no longer there$|no longer there /);
  // Without it nobody has said who has gone; it can be brought later, and belongs to no export.
  await page.click("#step-data");
  await choose(page, ...files(desk));
  await enter(page, "breeding");
  assert.match(await textOf(page, "#sire-ages"), /do not say which of them are alive/);
  await page.click("#step-data");
  await choose(page, writeInput(desk, `${stem}_available.txt`, list));
  await enter(page, "breeding");
  assert.match(await textOf(page, "#sire-ages"), /Only the 3 animals/);
  await page.click("#step-data");
  await choose(page, writeInput(desk, "told.csv", told), writeInput(desk, `${stem}_available.txt`, list));
  assert.match(await textOf(page, "#problems"), /is the list of the animals that are still there, beside a data file/);
}));

test("AColumnThatSaysWhoHasGoneIsChosenAsAnyOther", () => withDesk(async (page, desk) => {
  const lines = ["id;sex;birthdate;sire;dam;X", ...Array.from({ length: 30 }, (_animal, k) => `A${k};${k % 2 === 0 ? "m" : "f"};25-01-2000;;;${k < 3 ? "01-02-2020" : ""}`)];
  await choose(page, writeInput(desk, "odd.csv", lines.join("\n")));
  const chooser = 'select[aria-label^="what column 6 holds"]';
  assert.equal(await page.$eval(chooser, (element) => element.value), "");
  await page.select(chooser, "availability");
  await idle(page);
  assert.equal(await page.$eval(chooser, (element) => element.value), "availability");
  assert.match(await textOf(page, ".evidence"), /In use.*column 1, id: id of the animal; filled in 30/s);
  await enter(page, "settings");
  await page.select("#species", "sheep");
  await idle(page);
  assert.ok(await page.$("#save-available") !== null);
  await page.click("#step-data");
  await page.select(chooser, "");
  await idle(page);
  assert.equal(await page.$eval(chooser, (element) => element.value), "");
  await enter(page, "settings");
  assert.ok(await page.$("#save-available") === null);
}));

test("WhatCannotBeReadIsSaidAtItsField", () => withDesk(async (page, desk) => {
  await openTold(page, desk);
  await enter(page, "results");
  await page.click("#view-animals");
  await page.waitForSelector("#animals-leastF");
  await page.type("#animals-leastF", "x");
  await page.waitForFunction(() => document.getElementById("animals-leastF-problem").textContent !== "");
  assert.equal(await textOf(page, "#animals-leastF-problem"), '"x" cannot be read as a number: it is not used.');
  assert.equal(await page.$eval("#animals-leastF", (input) => input.getAttribute("aria-invalid")), "true");
  await page.keyboard.press("Backspace");
  await page.type("#animals-leastF", "1,5");
  await page.waitForFunction(() => document.getElementById("animals-leastF-problem").textContent === "");
  assert.deepEqual(await violations(page), []);
  await enter(page, "breeding");
  await selectText(page, "#first-year");
  await page.type("#first-year", "200x");
  await page.keyboard.press("Tab");
  assert.match(await textOf(page, "#first-year-problem"), /^"200x" is no year: \d+ is kept\.$/);
  await selectText(page, "#plan-matings");
  await page.type("#plan-matings", "two");
  await page.click("#make-plan");
  await idle(page);
  assert.match(await textOf(page, "#step"), /two/);
}));

test("QuotationMarksOfAnyFormAreFoundByAnyOther", () => withDesk(async (page, desk) => {
  await openTold(page, desk);
  await enter(page, "results");
  for (const typed of ["O'Hara", "o\u2019hara", "O`Hara"]) {
    await selectText(page, "#search-animal");
    await page.type("#search-animal", typed);
    await page.waitForFunction(() => /O\u2019Hara/.test(document.getElementById("search-animal-list").textContent));
    await page.keyboard.press("Escape");
    await page.keyboard.press("Escape");
    await page.waitForFunction(() => document.getElementById("search-animal").value === "");
    await page.type("#search-animal", " ");
    await page.waitForFunction(() => document.getElementById("search-animal-list").childElementCount === 0);
  }
}));

async function openExample(page) {
  await pressButton(page, "Try the example");
  await page.waitForFunction(() => !document.getElementById("step-check").disabled, { timeout: 60_000 });
  await idle(page);
}

test("TheCheckIsPrintedWithoutItsPresses", onlyPrinted, () => withDesk(async (page) => {
  await openExample(page);
  await enter(page, "check");
  await page.waitForSelector("#findings tbody tr");
  const presses = "#step button:not(.press), #findings tbody tr > :nth-child(2)";
  assert.ok(await page.$$eval(presses, (all) => all.some((one) => one.checkVisibility())));
  await page.emulateMediaType("print");
  assert.deepEqual(await page.$$eval(presses, (all) => all.filter((one) => one.checkVisibility()).map(({ textContent }) => textContent)), []);
  assert.ok(await page.$$eval(".paper table, #findings", (tables) => tables.some((table) => table.checkVisibility())), "the list is");
}));

test("WhereTheBreedStandsIsOnePrintedPage", { skip: isFirefox }, () => withDesk(async (page, desk) => {
  await openExample(page);
  await enter(page, "results");
  await page.waitForSelector("#results-body .stand .limits");
  const file = join(desk.folder, "printed.pdf");
  await page.pdf({ path: file, preferCSSPageSize: true });
  const first = execFileSync("pdftotext", ["-l", "1", file, "-"], { encoding: "utf8" });
  for (const title of ["Why", "What to do", "Against the limits", "Can you trust the data?"]) assert.ok(first.includes(title), title);
}));

test("OfLongTablesAllRowsArePrintedUpToALimit", onlyPrinted, () => withDesk(async (page, desk) => {
  await openExample(page);
  await enter(page, "results");
  await page.click("#view-animals");
  await page.waitForSelector("#animals-paper.filled tbody tr");
  assert.equal(await page.$$eval("#animals-paper tbody tr", (rows) => rows.length), 1000);
  assert.match(await textOf(page, "#animals-paper .note"), /^Printed are the first 1,000 of 3,\d{3} rows\. All of them are in .*_animals\.tsv \(button "Save the table of the animals"\)\.$/);
  assert.ok(!await isSeen(page, "#animals-paper"));
  await page.emulateMediaType("print");
  assert.ok(await isSeen(page, "#animals-paper") && await isSeen(page, "#animals-paper .note"));
  assert.ok(!await page.$eval("#all-animals", (table) => table.checkVisibility()), "the window is not printed beside them");
  await page.emulateMediaType("screen");
  // Fewer than the limit: all of them, and no note.
  await page.type("#animals-firstYear", await page.$eval("#all-animals tbody tr td:nth-child(4)", (cell) => cell.textContent));
  await page.waitForFunction(() => /^1 to \d+ of \d+$/.test(document.getElementById("animals-place").textContent));
  const count = Number((await textOf(page, "#animals-place")).split(" ").at(-1));
  await page.waitForFunction((wanted) => document.querySelectorAll("#animals-paper.filled tbody tr").length === wanted, {}, count);
  assert.ok(await page.$("#animals-paper .note") === null);
  await enter(page, "check");
  await page.waitForSelector("#findings-paper.filled tbody tr");
  await enter(page, "breeding");
  await page.type("#search-female", "1");
  await page.waitForSelector("#search-female-list li");
  await page.click("#search-female-list li");
  await idle(page);
  await page.click("#rank");
  await page.waitForSelector("#males-paper.filled tbody tr");
  const males = Number((await textOf(page, "#males [role=status]")).split(" ").at(-1).replace(/,/g, ""));
  assert.equal(await page.$$eval("#males-paper tbody tr", (rows) => rows.length), Math.min(1000, males));
}));
