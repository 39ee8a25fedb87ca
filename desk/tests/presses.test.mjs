// Presses that come while the page is being changed by what stood before them are not lost.

import assert from "node:assert/strict";
import { test } from "node:test";
import { choose, enter, idle, selectText, testDesks, textOf, writeInput } from "./browser.mjs";
import { herd, openHerd } from "./small_herd.mjs";

const { withDesk } = testDesks();

/** Types a name and leaves the field by pressing something else, slowly: what the change does is done in between. */
async function pressBehindName(page, name, selector) {
  await selectText(page, "#population");
  await page.type("#population", name);
  const { x, y, width, height } = await (await page.$(selector)).boundingBox();
  await page.mouse.move(x + width / 2, y + height / 2);
  await page.mouse.down();
  await new Promise((done) => setTimeout(done, 400));
  await page.mouse.up();
}

test("AStepThatIsPressedBehindATypedNameIsEntered", () => withDesk(async (page, desk) => {
  await openHerd(page, desk);
  await pressBehindName(page, "Heath Sheep", "#step-check");
  await page.waitForSelector('#step-check[aria-current="step"]');
  await idle(page);
  assert.match(await textOf(page, "#step"), /5 animals were checked/);
  assert.match(await textOf(page, "#print-head"), /^Heath Sheep,/);
}));

test("AQuickPressBehindATypedNameIsNotLostEither", () => withDesk(async (page, desk) => {
  await openHerd(page, desk);
  await selectText(page, "#population");
  await page.type("#population", "Heath Sheep");
  await page.click("#step-data");
  await page.waitForSelector('#step-data[aria-current="step"]');
  await idle(page);
  await enter(page, "settings");
  assert.equal(await page.$eval("#population", (input) => input.value), "Heath Sheep");
}));

test("AButtonBelowTheFieldDoesNotMoveAwayWhileItIsPressed", () => withDesk(async (page, desk) => {
  await openHerd(page, desk);
  await page.$eval("#step button.main", (button) => button.scrollIntoView({ block: "center" }));
  await page.$eval("#population", (input) => {
    input.value = "Heath Sheep";
    input.focus({ preventScroll: true });
  });
  // What the browser does with a field that was typed in, when it is left.
  await page.evaluate(() => document.getElementById("population").addEventListener("blur", (event) => event.target.dispatchEvent(new Event("change")), { once: true }));
  const { x, y, width, height } = await (await page.$("#step button.main")).boundingBox();
  await page.mouse.move(x + width / 2, y + height / 2);
  await page.mouse.down();
  await new Promise((done) => setTimeout(done, 400));
  await page.mouse.up();
  await page.waitForSelector('#step-check[aria-current="step"]');
  await idle(page);
  assert.match(await textOf(page, "#print-head"), /^Heath Sheep,/);
}));

test("WhatAPressKeepsBackIsDrawnBehindItAndBehindALongOne", () => withDesk(async (page, desk) => {
  await openHerd(page, desk);
  await selectText(page, "#population");
  await page.type("#population", "Heath Sheep");
  const { x, y } = await (await page.$("#title")).boundingBox();
  await page.mouse.move(x + 5, y + 5);
  await page.mouse.down();
  await page.waitForFunction(() => /Heath Sheep/.test(document.getElementById("steer").textContent), { timeout: 10_000 });
  await page.mouse.up();
  assert.ok(await page.$eval("#busy", (busy) => busy.hidden));
}));

test("TheLastStepThatIsPressedWhileAFileIsOpenedIsEnteredUnlessItIsCancelled", () => withDesk(async (page, desk) => {
  await choose(page, writeInput(desk, "herd.csv", herd()), writeInput(desk, "herd.answers", "--species sheep\n"));
  await page.evaluate(() => {
    document.getElementById("step-results").click();
    document.getElementById("step-settings").click();
    document.getElementById("step-check").click();
  });
  // Results are being made: what was pressed last follows.
  await page.waitForSelector('#step-check[aria-current="step"]');
  await idle(page);
  await enter(page, "settings");
  await page.$eval("#population", (input) => {
    input.value = "Heath Sheep";
    input.dispatchEvent(new Event("change"));
    document.getElementById("step-check").click();
    document.getElementById("cancel").click();
  });
  await idle(page);
  assert.equal(await page.$eval("#step-settings", (button) => button.getAttribute("aria-current")), "step");
}));
