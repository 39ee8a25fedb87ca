// Several females against several males, and animals that are left out, by pointer and by keyboard.

import assert from "node:assert/strict";
import { test } from "node:test";
import { choose, enter, idle, onlyPrinted, pressButton, saved, selectText, testDesks, textOf, violations, writeInput } from "./browser.mjs";
import { herd, openHerd, stemOf } from "./small_herd.mjs";

const { withDesk } = testDesks();

/** Beside the family of the herd two animals of which no parents are known. */
const strangers = ["F;Fred;m;25-01-2003;;", "G;Gea;f;25-01-2003;;"];

async function openBreeding(page, desk, ...lines) {
  await openHerd(page, desk, ...strangers, ...lines);
  await enter(page, "breeding");
}

/** Finds an animal by its name, and takes it. */
async function take(page, search, name) {
  await page.type(`#${search}`, name);
  await page.waitForSelector(`#${search}-list li`);
  await page.click(`#${search}-list li`);
  await idle(page);
}

const cellsOf = (page, selector) => page.$$eval(`${selector} tbody tr`, (rows) => rows.map((row) => [...row.children].map((cell) => cell.textContent)));
const isShown = (page, selector) => page.$eval(selector, (element) => element.offsetParent !== null);

test("SeveralFemalesAndSeveralMalesAreATableInColours", () => withDesk(async (page, desk) => {
  await openBreeding(page, desk);
  for (const [search, name] of [["search-females", "Zoe"], ["search-females", "Eef"], ["search-males", "Adam"], ["search-males", "Fred"], ["search-males", "Dirk"]]) await take(page, search, name);
  await page.click("#remove-males-2");
  assert.equal(await page.evaluate(() => document.activeElement.id), "remove-males-1", "the focus stays near");
  await page.click("#compare-mates");
  await idle(page);
  // A is the father of C, and twice a grandfather of E; nothing is known of F.
  const rows = await cellsOf(page, "#mates-screen");
  assert.deepEqual(rows.map(([id, , ...f]) => [id, ...f]), [["CZo\u00eb", "\u25b2 25.00", "0.00"], ["EEef", "\u25b2 25.00", "0.00"]]);
  assert.deepEqual(await page.$$eval("#mates-screen tbody .f-3", (cells) => cells.length), 2);
  assert.match(await textOf(page, "#mates-legend"), /up to 6\.25 %, first cousins.*above 25\.00 %/);
  assert.match(await textOf(page, "#mates"), /above the board's limit of 6\.25 %.*fewer than three generations/s);
  assert.deepEqual(await violations(page), []);
  const table = (await saved(desk, "Save this table", "mates.tsv")).toString();
  assert.equal(table, "female\tA\tF\nC\t0.25\t0\nE\t0.25\t0\n");
  assert.equal((await saved(desk, "Save this table as a workbook (.xlsx)", "mates.xlsx")).subarray(0, 2).toString(), "PK");
  await page.click("#dutch");
  await idle(page);
  assert.match(await textOf(page, "#mates-screen"), /25,00/);
  assert.match(await textOf(page, "#mates-legend"), /volle neef en nicht/);
}));

test("AllOfTheUsualAgesAreAddedAtOnceAndOtherYearsCanBeTyped", () => withDesk(async (page, desk) => {
  await openBreeding(page, desk);
  const chosen = (side) => page.$$eval(`#chosen-${side} li .press`, (chips) => chips.map((chip) => chip.textContent));
  // Dams and sires were two years old; two years old in 2005 are those born in 2003.
  assert.match(await textOf(page, "#step"), /nine dams in ten were 2 to 2 years old, as far as known\. Females born 2003 to 2003 are that old in 2005\./);
  for (const side of ["females", "males"]) {
    await page.focus(`#born-${side}`);
    await page.waitForFunction((id) => document.activeElement.id === id, {}, `born-${side}`);
    await page.keyboard.press("Enter");
    await page.waitForSelector(`#chosen-${side} li .press`);
    await idle(page);
    assert.equal(await page.evaluate(() => document.activeElement.id), `born-${side}`);
  }
  assert.deepEqual([await chosen("females"), await chosen("males")], [["G"], ["F"]]);
  const type = async (field, year) => {
    await selectText(page, field);
    await page.type(field, year);
    await page.keyboard.press("Tab");
  };
  await type("#first-females", "2002");
  await type("#last-females", "2004");
  await page.click("#born-females");
  await idle(page);
  assert.deepEqual(await chosen("females"), ["G", "C", "E"], "each once");
  assert.deepEqual(await violations(page), []);
  await type("#first-females", "1990");
  await type("#last-females", "1991");
  await page.click("#born-females");
  await idle(page);
  assert.match(await textOf(page, "#step"), /No animal that can be chosen was born 1990 to 1991\./);
}));

test("AListOfIdsIsPastedAndWhatCannotBeTakenIsNamed", () => withDesk(async (page, desk) => {
  await openBreeding(page, desk);
  await page.click("#chosen-females + details summary");
  await page.type("#paste-females", "C\nG\nnobody\nA\nC");
  await page.focus("#add-females");
  await page.keyboard.press("Enter");
  await idle(page);
  assert.deepEqual(await page.$$eval("#chosen-females li .press", (chips) => chips.map((chip) => chip.textContent)), ["C", "G"]);
  assert.match(await textOf(page, "#step"), /A is a male\./);
  assert.match(await textOf(page, "#step"), /No animal in the results has the id nobody\./);
  assert.equal(await page.$eval("#paste-females", (area) => area.value), "nobody\nA");
  assert.ok(await page.$eval("#compare-mates", (button) => button.disabled), "there is no male yet");
}));

test("TheTableIsPrintedInPiecesThatFitOnAPage", onlyPrinted, () => withDesk(async (page, desk) => {
  const more = Array.from({ length: 23 }, (_animal, k) => `M-2003-${k}-long;Male ${k};m;25-02-2003;;`);
  await openBreeding(page, desk, ...more);
  await page.click("#chosen-males + details summary");
  await page.$eval("#paste-males", (area, ids) => {
    area.value = ids;
    area.dispatchEvent(new Event("input"));
  }, more.map((line) => line.split(";")[0]).join("\n"));
  await page.click("#add-males");
  await idle(page);
  await take(page, "search-females", "Eef");
  await page.click("#compare-mates");
  await idle(page);
  await page.evaluate(() => { window.print = () => { window.printedWith = document.body.className; }; });
  await page.click("#print-mates");
  assert.match(await page.evaluate(() => window.printedWith), /prints-mates/);
  await page.emulateMediaType("print");
  await page.setViewport({ width: 1017, height: 700 });  // A4 on its side without its margins
  assert.equal(await isShown(page, "#mates-screen"), false);
  assert.equal(await isShown(page, "#search-females"), false);
  assert.deepEqual(await page.$$eval("#mates-paper table", (tables) => tables.map((table) => table.querySelectorAll("thead th[scope=col]").length)), [10, 10, 3]);
  const widths = await page.$$eval("#mates-paper table", (tables) => tables.map((table) => table.scrollWidth));
  assert.ok(widths.every((width) => width <= 1017), `wider than the page: ${widths}`);
  assert.ok(await isShown(page, "#mates-legend"), "the colours are explained");
  await page.emulateMediaType(null);
}));

/** Compares the males for E. */
async function rank(page) {
  await take(page, "search-female", "Eef");
  await page.$eval("#first-year", (input) => {
    input.value = "2000";
    input.dispatchEvent(new Event("change"));
  });
  await page.$eval("#last-year", (input) => {
    input.value = "2004";
    input.dispatchEvent(new Event("change"));
  });
  await page.click("#rank");
  await idle(page);
}
const idsOfMales = (page) => page.$$eval("#males tbody td:first-child .press", (cells) => cells.map((cell) => cell.textContent));

test("AMaleIsLeftOutWithAReasonByKeyboardAndTheListComesBack", () => withDesk(async (page, desk) => {
  await openHerd(page, desk, ...strangers);
  const stem = await stemOf(page);
  await enter(page, "breeding");
  await rank(page);
  assert.deepEqual(await idsOfMales(page), ["F", "A", "D"]);
  await page.focus("#leave-out-0");
  await page.keyboard.press("Enter");
  assert.equal(await page.evaluate(() => document.activeElement.id), "leave-out-why");
  await page.keyboard.type("sold");
  await page.keyboard.press("Enter");
  await idle(page);
  assert.deepEqual(await idsOfMales(page), ["A", "D"]);
  assert.equal(await page.evaluate(() => document.activeElement.id), "leave-out-0");
  assert.match(await textOf(page, "#step"), /left out here: 1\./);
  assert.deepEqual((await cellsOf(page, "#left-out"))[0].slice(0, 2), ["F", "Fred"]);
  assert.equal(await page.$eval("#left-out-why-0", (input) => input.value), "sold");
  // A female too, found by the search.
  await take(page, "search-left-out", "Gea");
  assert.equal(await page.evaluate(() => document.activeElement.id), "left-out-why-1");
  await page.keyboard.type('a "bad" hip');
  await page.keyboard.press("Enter");
  assert.deepEqual(await violations(page), []);
  const list = (await saved(desk, "Save the list of animals left out", `${stem}_left_out.tsv`)).toString();
  assert.match(list, /^id\twhy\twhen\nF\tsold\t\d{4}-\d\d-\d\d\nG\ta "bad" hip\t\d{4}-\d\d-\d\d\n$/);
  // The year after G is gone from the export, and another animal was added by hand.
  await page.click("#step-data");
  await choose(page, writeInput(desk, "next.csv", herd(strangers[0], "H;Han;m;25-01-2004;;")), writeInput(desk, "herd.answers", "--species sheep\n"),
    writeInput(desk, "herd_left_out.tsv", `\ufeff${list}H\t"an ""old"" injury"\t\n`));
  await enter(page, "breeding");
  assert.deepEqual((await cellsOf(page, "#left-out")).map((row) => row.slice(0, 2)), [["F", "Fred"], ["G", "not in these data"], ["H", "Han"]]);
  assert.equal(await page.$eval("#left-out-why-2", (input) => input.value), 'an "old" injury');
  await rank(page);
  assert.deepEqual(await idsOfMales(page), ["A", "D"]);
  await page.click("#take-back-0");
  await idle(page);
  assert.deepEqual(await idsOfMales(page), ["F", "A", "D"]);
}));

test("APlanTakesNobodyWhoIsLeftOutAndSaysWhenItIsOfBefore", () => withDesk(async (page, desk) => {
  await openBreeding(page, desk);
  const setField = (field, text) => page.$eval(`#plan-${field}`, (input, value) => {
    input.value = value;
    input.dispatchEvent(new Event("change"));
  }, text);
  await setField("years", "9");
  await setField("matings", "2");
  const malesOfPlan = () => page.$$eval("#plan-pairs tbody tr", (rows) => rows.map((row) => row.children[2].textContent));
  await page.click("#make-plan");
  await idle(page);
  assert.ok((await malesOfPlan()).includes("F"), "a male that nobody is related to is the best one");
  await take(page, "search-left-out", "Fred");
  assert.match(await textOf(page, "#plan-of-before"), /make it again/);
  await page.click("#make-plan");
  await idle(page);
  assert.ok(await page.$("#plan-of-before") === null);
  assert.ok(!(await malesOfPlan()).includes("F"));
}));

test("AListThatWasNotSavedStaysWhenAnotherExportIsOpened", () => withDesk(async (page, desk) => {
  await openBreeding(page, desk);
  await take(page, "search-left-out", "Fred");
  await page.click("#step-data");
  await choose(page, writeInput(desk, "next.csv", herd(strangers[0])));
  assert.match(await textOf(page, "#former-left-out"), /herd\.csv has not been saved/);
  await pressButton(page, "Use them with this export");
  assert.ok(await page.$("#former-left-out") === null);
  await choose(page, writeInput(desk, "list.tsv", "id\twhy\twhen\nA\tdead\t\n"));
  await enter(page, "settings");
  await page.select("#species", "sheep");
  await idle(page);
  await enter(page, "breeding");
  assert.deepEqual((await cellsOf(page, "#left-out")).map(([id]) => id), ["F", "A"]);
}));

test("AListAloneIsToldToNeedAnExport", () => withDesk(async (page, desk) => {
  await choose(page, writeInput(desk, "list.tsv", "id\twhy\twhen\nA\tdead\t\n"));
  assert.match(await textOf(page, "#problems"), /choose an export together with it/);
}));

test("LeavingAnAnimalOutKeepsThoseThatHaveGoneWhereTheyWereAskedFor", () => withDesk(async (page, desk) => {
  const year = new Date().getFullYear(), died = new Set(["B", "F", "I"]);
  const born = [["A", "m", 6], ["B", "m", 6], ["C", "f", 6], ["D", "f", 6], ["E", "m", 4], ["F", "m", 4], ["G", "f", 4], ["H", "f", 4], ["I", "m", 3], ["J", "m", 3], ["K", "f", 3], ["L", "f", 3]];
  const lines = born.map(([id, sex, age], k) => [id, sex, `25-01-${year - age}`, k < 4 ? "" : age === 4 ? "A" : "E", k < 4 ? "" : age === 4 ? "C" : "G", died.has(id) ? `12-03-${year - 1}` : ""].join(";"));
  await choose(page, writeInput(desk, "gone.csv", ["id;sex;birthdate;sire;dam;date of death", ...lines].join("\n")), writeInput(desk, "gone.answers", "--species sheep\n"));
  await enter(page, "breeding");
  await page.type("#search-female", "L");
  await page.waitForSelector("#search-female-list li");
  await page.click("#search-female-list li");
  await idle(page);
  for (const [id, value] of [["first-year", year - 9], ["last-year", year]]) {
    await page.$eval(`#${id}`, (input, text) => {
      input.value = text;
      input.dispatchEvent(new Event("change"));
    }, String(value));
  }
  await page.click("#rank");
  await idle(page);
  assert.deepEqual((await idsOfMales(page)).sort(), ["A", "E", "J"]);
  await page.click("#take-gone");
  await page.click("#rank");
  await idle(page);
  assert.deepEqual((await idsOfMales(page)).sort(), ["A", "B", "E", "F", "I", "J"]);
  const [first] = await idsOfMales(page);
  await page.click("#leave-out-0");
  await page.keyboard.press("Enter");
  await idle(page);
  assert.deepEqual((await idsOfMales(page)).sort(), ["A", "B", "E", "F", "I", "J"].filter((id) => id !== first));
}));
