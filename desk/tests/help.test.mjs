// The help behind "?" in each step.

import assert from "node:assert/strict";
import { test } from "node:test";
import { enter, idle, pressButton, testDesks, textOf, violations } from "./browser.mjs";

const { withDesk } = testDesks();
const steps = ["data", "settings", "check", "results", "breeding"];
const isOpen = (page) => page.$eval("#help", (help) => !help.hidden);

test("EachStepHasHelpOfItsOwnInBothLanguages", () => withDesk(async (page) => {
  await pressButton(page, "Try the example");
  await idle(page);
  assert.equal(await isOpen(page), false);
  await page.click("#help-button");
  const seen = new Set();
  for (const step of steps) {
    await enter(page, step);
    assert.ok(await isOpen(page), "it stays open from step to step");
    for (const language of ["english", "dutch"]) {
      await page.click(`#${language}`);
      await idle(page);
      const entries = await page.$$eval("#help dt, #help dd", (elements) => elements.map((element) => element.textContent));
      assert.ok(entries.length >= 8 && entries.every((entry) => entry.length > 3), step);
      seen.add(entries.join());
    }
    assert.deepEqual(await violations(page), [], step);
  }
  assert.equal(seen.size, 2 * steps.length);
  await page.click("#help-close");
  assert.equal(await isOpen(page), false);
}));

test("ButtonsThatTheHelpNamesAreThere", () => withDesk(async (page) => {
  await pressButton(page, "Try the example");
  await idle(page);
  for (const [step, names] of [["data", ["How the file is read"]], ["check", ["Show", "Mend"]], ["results", ["All animals"]]]) {
    await enter(page, step);
    await page.click("#help-button");
    const said = await textOf(page, "#help");
    if (step === "check") await page.waitForSelector("#findings tbody tr");
    const words = await page.$$eval("#step button, #step summary", (elements) => elements.map((element) => element.textContent));
    for (const name of names) {
      assert.ok(said.includes(`"${name}"`), `the help of ${step} names ${name}`);
      assert.ok(words.includes(name), `${step} has ${name}`);
    }
    await page.click("#help-button");
  }
}));

test("TheHelpIsOpenedAndClosedByKeyboard", () => withDesk(async (page) => {
  await page.focus("#help-button");
  assert.equal(await page.$eval("#help-button", (button) => button.getAttribute("aria-label")), "Help: Data");
  await page.keyboard.press("Enter");
  assert.ok(await isOpen(page));
  assert.equal(await page.$eval("#help-button", (button) => button.getAttribute("aria-expanded")), "true");
  await page.keyboard.press("Tab");
  assert.equal(await page.evaluate(() => document.activeElement.id), "help-close");
  await page.keyboard.press("Escape");
  assert.equal(await isOpen(page), false);
  assert.equal(await page.evaluate(() => document.activeElement.id), "help-button");
}));

test("TheHelpIsNotCutInANarrowWindow", () => withDesk(async (page) => {
  await page.setViewport({ width: 390, height: 800 });
  await page.click("#help-button");
  assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= 390));
}));
