// The desk as its users meet it: in a browser, from a file on disk.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { describe, test } from "node:test";
import { choose, enter, idle, isFirefox, pressButton, root, saved, testDesks, textOf, violations, writeInput } from "./browser.mjs";
import { herd, stemOf } from "./small_herd.mjs";

const program = process.env.PEDIGREEWATCH ?? join(root, "build/release/pedigreewatch");
const steps = ["data", "settings", "check", "results", "breeding"];

const { openTestDesk, withDesk } = testDesks();

/** An export of an office: commas, every field in quotation marks, accents, two quotation marks for one. */
function officeExport() {
  const quoted = (fields) => fields.map((field) => `"${String(field).replaceAll('"', '""')}"`).join(",");
  const lines = [quoted(["ID", "Name", "Sex", "Born", "Sire", "Dam", "Colour", "Region"])];
  let seed = 7;
  const random = (count) => {
    seed = (seed * 1103515245 + 12345) % 2147483648;
    return Math.floor((seed / 2147483648) * count);
  };
  for (let k = 1; k <= 400; ++k) {
    const year = 2000 + Math.floor(k / 40), parent = (odd) => (k <= 40 ? "" : `S${2 * random((k - 21) >> 1) + (odd ? 1 : 2)}`);
    lines.push(quoted([`S${k}`, `Zo\u00eb "${k}"`, k % 2 === 1 ? "ram" : "ewe", `${String(1 + random(28)).padStart(2, "0")}-05-${year}`,
      parent(true), parent(false), ["grey", "black"][k % 2], ["Noord, Oost", "Zuid"][random(2)]]));
  }
  return lines.join("\r\n") + "\r\n";
}

/** The report that the program itself writes for these two files. */
function nativeReport(steer, data, dataName, reportName) {
  const folder = mkdtempSync(join(tmpdir(), "desk-native-"));
  try {
    writeFileSync(join(folder, "pedigreewatch.ini"), steer);
    writeFileSync(join(folder, dataName), data);
    execFileSync(program, [], { cwd: folder, stdio: "ignore" });
    return readFileSync(join(folder, reportName));
  } finally {
    rmSync(folder, { recursive: true, force: true });
  }
}

test("AnExportInUtf8WithQuotesBecomesChartsAndTheReportOfTheProgram", () => withDesk(async (page, desk) => {
  await choose(page, writeInput(desk, "sheep.csv", officeExport()));
  assert.match(await textOf(page, "#step"), /UTF-8/);
  assert.match(await textOf(page, ".lines"), /Zo\u00eb "1"/);
  await page.select('select[aria-label*="Region"]', "subpopulation");
  await idle(page);
  await enter(page, "settings");
  assert.match(await textOf(page, "#steer"), /sheep/);
  assert.match(await textOf(page, "#step"), /Noord, Oost/);
  await enter(page, "check");
  assert.match(await textOf(page, "#step"), /400 animals were checked/);
  await enter(page, "results");
  assert.ok((await page.$$("#results-body svg")).length > 5);
  await enter(page, "settings");
  const steer = await saved(desk, "Save the steer file", "pedigreewatch.ini");
  const name = steer.toString("latin1").split(/\r?\n/)[1];
  const data = await saved(desk, "Save the data file", name);
  await enter(page, "results");
  const reportName = name.replace(/txt$/, "out");
  const report = await saved(desk, "Save the report", reportName);
  assert.ok(report.equals(nativeReport(steer, data, name, reportName)), "the program writes another report");
  await pressButton(page, "Report as text");
  await page.waitForFunction(() => document.getElementById("report").textContent.length > 1000);
  assert.match((await saved(desk, "Save the page", name.replace(/txt$/, "html"))).toString(), /^<!DOCTYPE html>/i);
  assert.match((await saved(desk, "Save the table by year", name.replace(".txt", "_years.tsv"))).toString(), /^[a-z_]+\t/);
}));

test("ADataFileWithItsSteerFileIsTakenAsItIs", () => withDesk(async (page, desk) => {
  const folder = join(root, "examples/heide-nl");
  await choose(page, join(folder, "heide.txt"), join(folder, "pedigreewatch.ini"));
  await enter(page, "results");
  const report = await saved(desk, "Save the report", "heide.out");
  assert.ok(report.equals(readFileSync(join(folder, "heide.out"))));
}));

describe("WorkbooksAreUnpackedByTheBrowser", () => {
  const folder = join(root, "tests/sheets/files");
  for (const name of ["written_by_office.xlsx", "written_by_office.ods", "written_by_library.xlsx"]) {
    test(name, () => withDesk(async (page) => {
      await choose(page, join(folder, name));
      assert.match(await textOf(page, "#step"), /Sheet\s*"Dogs" of 2/);
      assert.equal(await page.$$eval(".lines tbody tr", (rows) => rows.length) > 2, true);
      assert.deepEqual(await page.$$eval("#read-sheet option", (options) => options.length), 2);
    }));
  }
  test("a damaged one", () => withDesk(async (page, desk) => {
    const bytes = readFileSync(join(folder, "written_by_office.xlsx"));
    bytes.fill(0x55, bytes.length >> 2, (bytes.length >> 2) + 200);
    await choose(page, writeInput(desk, "damaged.xlsx", bytes));
    assert.match(await textOf(page, "#step .problem"), /damaged|not complete/);
  }));
});

test("AnAnimalThatIsItsOwnAncestorIsFoundAndStopsTheResults", () => withDesk(async (page, desk) => {
  const lines = ["id;sex;birthdate;sire;dam", "A;m;01-01-2000;C;", "B;f;01-01-2000;;", "C;m;01-01-2001;A;B", "D;f;01-01-2002;C;B"];
  await choose(page, writeInput(desk, "loop.csv", lines.join("\n")));
  await enter(page, "settings");
  await page.select("#species", "dog");
  await idle(page);
  await enter(page, "check");
  assert.match(await textOf(page, "#step"), /An animal is its own ancestor/);
  assert.ok(await page.$eval("#step-results", (button) => button.disabled));
  await pressButton(page, "Show");
  await page.waitForFunction(() => document.querySelectorAll("#findings tbody tr").length > 0);
  assert.match(await textOf(page, "#findings"), /A;m;01-01-2000;C;/);
}));

describe("WrongFilesAreToldInPlainWords", () => {
  const picture = Buffer.from("89504e470d0a1a0a0000000d49484452", "hex");
  for (const [name, content, message] of [["photo.png", picture, /no text|another kind/], ["nothing.csv", "", /empty/]]) {
    test(name, () => withDesk(async (page, desk) => {
      await choose(page, writeInput(desk, name, content));
      assert.match(await textOf(page, "#step .problem"), message);
      assert.ok(await page.$eval("#step-settings", (button) => button.disabled));
    }));
  }
  test("UTF-16 is read", () => withDesk(async (page, desk) => {
    await choose(page, writeInput(desk, "wide.csv", Buffer.from(`\ufeff${officeExport()}`, "utf16le")));
    assert.match(await textOf(page, "#step"), /UTF-16/);
    assert.match(await textOf(page, ".lines"), /Zo\u00eb/);
  }));
  test("a steer file alone", () => withDesk(async (page, desk) => {
    await choose(page, writeInput(desk, "pedigreewatch.ini", "Moorland Sheep\nmoorland.txt\n"));
    assert.match(await textOf(page, "#problems"), /choose its data file together with it/);
  }));
  test("a steer file with a long name", () => withDesk(async (page, desk) => {
    const folder = join(root, "examples/heide-nl");
    const steer = writeInput(desk, `${"n".repeat(120)}.ini`, readFileSync(join(folder, "pedigreewatch.ini")));
    await choose(page, join(folder, "heide.txt"), steer);
    await enter(page, "check");
    assert.match(await textOf(page, "#step"), /3,500 animals were checked/);
  }));
  test("three files", () => withDesk(async (page, desk) => {
    await choose(page, ...["a.csv", "b.csv", "c.csv"].map((name) => writeInput(desk, name, "x")));
    assert.match(await textOf(page, "#problems"), /cannot be used together/);
  }));
});

test("HostileNamesAreTextOnEveryStep", () => withDesk(async (page, desk) => {
  const hostile = ["<script>alert(1)</script>", "<img src=x onerror=alert(2)>", "\"'><b>bold</b>", "a\u202eb", "x\u0001y", "${7*7}&amp;"];
  const quoted = (text) => `"${text.replaceAll('"', '""')}"`;
  const lines = ["id,name,sex,birthdate,sire,dam,colour,breeder,subpopulation"];
  for (let k = 0; k < 60; ++k) {
    const name = hostile[k % hostile.length], parents = k < 12 ? ["", ""] : [`${hostile[0]}${(k % 6) * 2}`, `${hostile[0]}${(k % 5) * 2 + 1}`];
    lines.push([`${hostile[0]}${k}`, name, k % 2 ? "f" : "m", `${2000 + Math.floor(k / 6)}-03-0${1 + (k % 9)}`, ...parents, name, name, name].map(quoted).join(","));
  }
  await choose(page, writeInput(desk, "<b>hostile.csv".replace(/[<>]/g, "_"), lines.join("\n")));
  await enter(page, "settings");
  await page.select("#species", "dog");
  await idle(page);
  const isClean = () => page.evaluate(() => document.querySelectorAll("main script, main img, main b").length === 0);
  for (const step of steps) {
    await enter(page, step);
    assert.ok(await isClean(), step);
  }
  await page.type("#search-female", "<script>");
  await page.waitForSelector(".found li");
  assert.match(await textOf(page, ".found"), /<script>alert\(1\)/);
  assert.ok(await isClean());
}));

/** Drops files of these names and contents anywhere on the page, as a file manager does. */
async function drop(page, ...files) {
  await page.evaluate((all) => {
    const transfer = new DataTransfer();
    for (const [name, content] of all) transfer.items.add(new File([content], name));
    document.body.dispatchEvent(new DragEvent("drop", { dataTransfer: transfer, bubbles: true, cancelable: true }));
  }, files);
  await idle(page, 300_000);
}

const currentStep = (page) => page.$eval("#steps [aria-current]", (button) => button.id);

test("AnswersAreTakenAsTheProgramTakesThem", () => withDesk(async (page, desk) => {
  const answers = ["# a remark", "headings: id | name", "--encoding UTF-8 twice", "--delimiter ;", "--language nl", "--weather sun", "--species sheep", "--name Moor"].join("\r\n");
  await choose(page, writeInput(desk, "herd.csv", herd()), writeInput(desk, "herd.answers", answers));
  assert.match(await textOf(page, "#problems"), /cannot be read, and were passed over: line 6 "--weather sun"$/);
  assert.deepEqual(await page.$$eval("#read-encoding, #read-delimiter", (choosers) => choosers.map(({ value }) => value)), ["utf-8-twice", "semicolon"]);
  await enter(page, "settings");
  assert.match(await textOf(page, "#steer"), /Moor/);
  assert.match(String(await saved(desk, "Save the answers", `${await stemOf(page)}.answers`)), /\n--encoding UTF-8 twice\n--delimiter ;\n--species sheep\n--name Moor\n/);
}));

test("WhatIsOpenStaysUntilAnotherFileIsOpen", () => withDesk(async (page, desk) => {
  await choose(page, writeInput(desk, "sheep.csv", officeExport()));
  for (const step of ["settings", "check", "results"]) await enter(page, step);
  const figures = await textOf(page, "#results-body");
  const stays = async (said) => {
    assert.match(await textOf(page, "#problems"), said);
    assert.equal(await currentStep(page), "step-results");
    assert.equal(await textOf(page, "#results-body"), figures);
  };
  await drop(page, ["picture.png", "\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0"]);
  await stays(/picture\.png was not opened, and the data that you had are still here\. ./);
  await drop(page, ...Array.from({ length: 10 }, (_none, k) => [`${k}.csv`, "id\n"]));
  await stays(/cannot be used together/);
  await drop(page);
  await stays(/is no file/);
  if (!isFirefox) {
    const session = await page.createCDPSession(), data = { items: [], files: [desk.folder], dragOperationsMask: 1 };
    for (const type of ["dragEnter", "dragOver", "drop"]) await session.send("Input.dispatchDragEvent", { type, x: 300, y: 300, data });
    await page.waitForFunction(() => document.getElementById("problems").textContent.includes("folder"));
    await stays(/is a folder\. Choose the file in it\./);
  }
  await drop(page, ["goats.csv", officeExport()]);
  assert.equal(await currentStep(page), "step-data");
  assert.match(await textOf(page, "#step"), /goats\.csv/);
  assert.equal(await textOf(page, "#problems"), "");
}));

test("AFileThatIsGoneIsStillHereAfterACancelledRun", () => withDesk(async (page, desk) => {
  const file = writeInput(desk, "sheep.csv", officeExport());
  await choose(page, file);
  rmSync(file);
  await enter(page, "settings");
  await page.evaluate(() => {
    document.getElementById("step-check").click();
    document.getElementById("cancel").click();
  });
  await idle(page);
  await enter(page, "settings");
  await enter(page, "check");
  assert.match(await textOf(page, "#step"), /400 animals were checked/);
}));

test("ClosingAsksWhenResultsWereNotSaved", () => withDesk(async (page, desk) => {
  const asks = () => page.evaluate(() => !dispatchEvent(new Event("beforeunload", { cancelable: true })));
  await choose(page, writeInput(desk, "sheep.csv", officeExport()));
  assert.equal(await asks(), false);
  await enter(page, "settings");
  const name = (await saved(desk, "Save the steer file", "pedigreewatch.ini")).toString("latin1").split(/\r?\n/)[1];
  for (const step of ["check", "results"]) await enter(page, step);
  assert.equal(await asks(), true);
  await saved(desk, "Save the table by year", name.replace(".txt", "_years.tsv"));
  assert.equal(await asks(), true, "one table of several");
  await saved(desk, "Save all tables as a workbook (.xlsx)", name.replace(".txt", "_tables.xlsx"));
  assert.equal(await asks(), false);
  await enter(page, "breeding");
  assert.equal(await asks(), false);
  await page.click("#make-plan");
  await idle(page);
  assert.equal(await asks(), true, "a plan");
  await saved(desk, "Save the contributions", "contributions.tsv");
  assert.equal(await asks(), true, "one table of several");
  await saved(desk, "Save the pairs", "plan.tsv");
  assert.equal(await asks(), false);
  await page.click("#plan-pairs tbody tr button[aria-label^='Fix']");
  await idle(page);
  assert.equal(await asks(), true, "the plan was changed");
  await saved(desk, "Save the pairs", "plan.tsv");
  await page.click("#make-forecast");
  await page.waitForFunction(() => document.querySelector("#forecast-body svg") !== null && document.querySelector("#stop-forecast") === null);
  assert.equal(await asks(), true, "a forecast");
  await saved(desk, "Save the forecast", "forecast.tsv");
  assert.equal(await asks(), false);
  for (const side of ["female", "male"]) {
    await page.type(`#search-${side}s`, "1");
    await page.waitForSelector(`#search-${side}s-list li`);
    await page.click(`#search-${side}s-list li`);
  }
  assert.equal(await asks(), false, "chosen, and not compared yet");
  const compare = async () => {
    await page.click("#compare-mates");
    await page.waitForSelector("#mates-screen td");
    await idle(page);
  };
  await compare();
  assert.equal(await asks(), true, "a table of mates");
  await saved(desk, "Save this table", "mates.tsv");
  assert.equal(await asks(), false);
  await compare();
  assert.equal(await asks(), true, "it was made once more");
  await saved(desk, "Save this table as a workbook (.xlsx)", "mates.xlsx");
  assert.equal(await asks(), false);
}));

test("AColumnThatIsNotShownStaysAsItIs", () => withDesk(async (page, desk) => {
  const wide = (first, last) => [...first, ...Array(90).fill("x"), last].join(";");
  const lines = [wide(["id", "sex", "birthdate", "sire", "dam", "note"], "colour"), wide(["A", "m", "13-01-2000", "", "", "n"], "grey"),
    wide(["B", "f", "13-01-2000", "", "", "n"], "black")];
  await choose(page, writeInput(desk, "wide.csv", lines.join("\n")));
  await page.select('select[aria-label*="(note)"]', "name");
  await idle(page);
  await enter(page, "settings");
  assert.match(await textOf(page, "#step"), /grey/);
}));

describe("OneThingIsDoneAfterTheOther", () => {
  test("another language while results are made", () => withDesk(async (page, desk) => {
    await pressButton(page, "Try the example");
    await idle(page);
    await page.evaluate(() => {
      document.getElementById("step-results").click();
      document.getElementById("dutch").click();
    });
    await idle(page);
    assert.ok((await page.$$("#results-body svg")).length > 5);
    const report = await saved(desk, "Bewaar het rapport", "moorland.out");
    await page.click("#step-settings");
    assert.equal(await page.$eval("#report-language", (element) => element.value), "en");
    const steer = await textOf(page, "#steer");
    const data = await saved(desk, "Bewaar het databestand", "moorland.txt");
    assert.ok(report.equals(nativeReport(Buffer.from(steer, "latin1"), data, "moorland.txt", "moorland.out")));
  }));
  test("another setting while a file is saved", () => withDesk(async (page) => {
    await pressButton(page, "Try the example");
    await idle(page);
    await enter(page, "settings");
    await page.evaluate(() => {
      [...document.querySelectorAll("button")].find(({ textContent }) => textContent === "Save the steer file").click();
      const species = document.getElementById("species");
      species.value = "dog";
      species.dispatchEvent(new Event("change"));
    });
    await idle(page);
    await enter(page, "check");
    assert.match(await textOf(page, "#step"), /3,500 animals were checked/);
    await enter(page, "results");
    assert.ok((await page.$$("#results-body svg")).length > 5);
  }));
  test("three clicks where one is enough", () => withDesk(async (page) => {
    await page.evaluate(() => {
      const example = [...document.querySelectorAll(".drop button")].find(({ textContent }) => textContent === "Try the example");
      for (let k = 0; k < 3; ++k) example.click();
    });
    await idle(page);
    await enter(page, "results");
    assert.ok((await page.$$("#results-body svg")).length > 5);
  }));
  test("a kind is chosen before the filter has been obeyed", () => withDesk(async (page) => {
    await pressButton(page, "Try the example");
    await idle(page);
    await enter(page, "check");
    await page.evaluate(() => {
      const filter = document.getElementById("filter");
      filter.value = "nobody has this";
      filter.dispatchEvent(new Event("input"));
      [...document.querySelectorAll("button")].find(({ textContent }) => textContent === "Show").click();
    });
    await page.waitForFunction(() => /0 to 0 of 0/.test(document.getElementById("findings-place").textContent));
    assert.equal(await page.$eval("#filter", (element) => element.value), "nobody has this");
  }));
});

test("TheKeyboardAloneIsEnough", () => withDesk(async (page) => {
  // Behind the last element come the browser's own controls, to which the Enter key would go: who wants to get back to
  // what stands above goes backwards.
  const tabTo = async (selector, isBack = false) => {
    for (let k = 0; k < 200; ++k) {
      if (isBack) await page.keyboard.down("Shift");
      await page.keyboard.press("Tab");
      if (isBack) await page.keyboard.up("Shift");
      assert.ok(await page.evaluate(() => document.hasFocus()), `the page ends before ${selector}`);
      if (await page.evaluate((wanted) => document.activeElement?.matches(wanted) ?? false, selector)) return;
    }
    assert.fail(`the keyboard does not reach ${selector}`);
  };
  const press = async (selector, isBack = false) => {
    await tabTo(selector, isBack);
    await page.keyboard.press("Enter");
    await idle(page);
  };
  await page.evaluate(() => document.body.focus());
  await tabTo("#choose-files");
  await press(".drop button:not(#choose-files)");
  for (const step of steps.slice(1)) {
    await press("button.main");
    await page.waitForSelector(`#step-${step}[aria-current="step"]`);
    await idle(page);
    if (step === "results") break;
  }
  await press("#step-breeding", true);
  await page.waitForSelector('#step-breeding[aria-current="step"]');
  await idle(page);
  await tabTo("#search-female");
  await page.keyboard.type("HS");
  await page.waitForSelector("#search-female-list li");
  await page.keyboard.press("ArrowDown");
  await page.keyboard.press("Enter");
  await idle(page);
  await press("#rank");
  assert.ok(await page.$("#males table"));
}));

test("APlanIsMadeAndChangedByHand", () => withDesk(async (page) => {
  await pressButton(page, "Try the example");
  await idle(page);
  await page.click("#step-breeding");
  await page.waitForSelector('#step-breeding[aria-current="step"]');
  await idle(page);
  if (await page.$("#make-plan") === null) await page.click("button.main");
  await idle(page);
  for (const [field, value] of [["years", "6"], ["matings", "20"], ["mostPerMale", "4"]]) {
    await page.$eval(`#plan-${field}`, (input, text) => {
      input.value = text;
      input.dispatchEvent(new Event("change"));
    }, value);
  }
  await page.click("#make-plan");
  await idle(page);
  assert.equal(await page.$$eval("#plan-compared tbody tr", (rows) => rows.length), 5);
  assert.equal(await page.$$eval("#plan-pairs tbody tr", (rows) => rows.length), 20);
  const meanF = () => page.$eval("#plan-mean-f", (element) => Number.parseFloat(element.textContent));
  const pair = () => page.$eval("#plan-pairs tbody tr", (row) => [...row.children].slice(0, 3).map((cell) => cell.textContent).join(" "));
  const [bestF, bestPair] = [await meanF(), await pair()];
  await page.click('#plan-pairs tbody tr:nth-child(1) button[aria-label^="Forbid"]');
  await idle(page);
  assert.notEqual(await pair(), bestPair);
  assert.ok(await meanF() >= bestF, "other pairs than the best ones cannot be better");
  await page.click('#plan-pairs tbody tr:nth-child(1) button[aria-label^="Swap"]');
  await page.click('#plan-pairs tbody tr:nth-child(2) button[aria-label^="Swap with this"]');
  await idle(page);
  assert.equal(await page.$$eval('#plan-pairs button[aria-label^="Loosen"]', (buttons) => buttons.length), 2);
  await page.click('#plan-pairs button[aria-label^="Loosen"]');
  await idle(page);
  assert.equal(await page.$$eval('#plan-pairs button[aria-label^="Loosen"]', (buttons) => buttons.length), 1);
}));

test("TheDeskIsOfTheVersionOfTheProgram", () => withDesk(async (page) => {
  const { version } = execFileSync(program, ["--version"], { encoding: "utf8" }).match(/(?<version>\d+\.\d+\.\d+)/).groups;
  assert.equal(await textOf(page, "#version"), `Pedigree Watch ${version}`);
}));

test("TheButtonAsksTheBrowserForFiles", () => withDesk(async (page) => {
  await page.$eval("#files", (input) => input.addEventListener("click", (event) => {
    event.preventDefault();
    input.dataset.isAsked = "yes";
  }));
  await pressButton(page, "Choose files");
  assert.equal(await page.$eval("#files", (input) => input.dataset.isAsked), "yes");
}));

describe("BothLanguages", () => {
  for (const [language, expected] of [["en", /Which animals\?/], ["nl", /Om welke dieren gaat het/]]) {
    test(language, () => withDesk(async (page) => {
      assert.match(await textOf(page, "#title"), expected);
      assert.equal(await page.$eval("html", (element) => element.lang), language);
      await pressButton(page, language === "nl" ? "Probeer het voorbeeld" : "Try the example");
      await idle(page);
      await page.click(language === "nl" ? "#english" : "#dutch");
      await idle(page);
      assert.match(await textOf(page, "#step"), language === "nl" ? /What was recognised/ : /Wat herkend is/);
      assert.match(await textOf(page, ".evidence"), language === "nl" ? /Divided by/ : /Gescheiden door/);
    }, { language }));
  }
});

test("TheCheckOfAPairOfFilesIsSaidInTheOtherLanguageToo", () => withDesk(async (page) => {
  const folder = join(root, "examples/heide-nl");
  await choose(page, join(folder, "heide.txt"), join(folder, "pedigreewatch.ini"));
  await enter(page, "check");
  assert.match(await textOf(page, "#step"), /Worth a look/);
  await page.click("#dutch");
  await idle(page);
  assert.match(await textOf(page, "#step"), /Het bekijken waard/);
  assert.doesNotMatch(await textOf(page, "#step"), /Worth a look/);
}));

/** Of the pictures, and of the desk in them. */
const pictured = process.env.DESK_LANGUAGE ?? "en";

test("EveryStepIsAccessibleAndIsPictured", () => withDesk(async (page) => {
  const pictures = process.env.DESK_PICTURES;
  if (pictures) mkdirSync(pictures, { recursive: true });
  await pressButton(page, pictured === "nl" ? "Probeer het voorbeeld" : "Try the example");
  await idle(page);
  for (const step of steps) {
    await enter(page, step);
    if (step === "breeding") {
      for (const [role, number] of [["female", "HS033"], ["male", "HS031"]]) {
        await page.type(`#search-${role}`, number);
        await page.waitForSelector(`#search-${role}-list li`);
        await page.click(`#search-${role}-list li`);
        await idle(page);
        await page.waitForSelector(`#chosen-${role}`);
      }
      await page.click("#rank");
      await page.waitForSelector("#males table");
      await idle(page);
    }
    if (step === "check") await page.waitForFunction(() => document.querySelectorAll("#findings tbody tr").length > 0 || !document.getElementById("findings"));
    assert.deepEqual(await violations(page), [], step);
    if (step === "results") await page.$eval("#results-body figure, #results-body svg", (chart) => chart.scrollIntoView());
    if (pictures) await page.screenshot({ path: join(pictures, `desk-${pictured === "nl" ? "nl-" : ""}${steps.indexOf(step) + 1}-${step}.png`) });
  }
}, { language: pictured }));

test("ThePolicyRefusesEveryRequest", async () => {
  const desk = await openTestDesk();
  try {
    const refused = await desk.page.evaluate(async () => {
      const violation = new Promise((done) => addEventListener("securitypolicyviolation", (event) => done(event.effectiveDirective)));
      try {
        await fetch("https://example.org/");
        return "nothing";
      } catch {
        return violation;
      }
    });
    assert.equal(refused, "connect-src");
  } finally {
    await desk.close();
  }
});
