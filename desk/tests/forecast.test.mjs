// The forecast: begun with fields, drawn anew while replicates come in, stopped at once.

import assert from "node:assert/strict";
import { test } from "node:test";
import { enter, idle, pressButton, saved, testDesks, textOf, violations } from "./browser.mjs";

const { withDesk } = testDesks();

async function openForecast(page) {
  await pressButton(page, "Try the example");
  await idle(page);
  await enter(page, "breeding");
  await idle(page);
  if (await page.$("#make-forecast") === null) await page.click("button.main");
  await idle(page);
}

const setField = (page, field, text) => page.$eval(`#forecast-${field}`, (input, value) => {
  input.value = value;
  input.dispatchEvent(new Event("change"));
}, text);
const progress = (page) => textOf(page, "#forecast-progress");
const charts = (page) => page.$$eval("#forecast-body svg", (pictures) => pictures.length);

test("AForecastIsDrawnWhileReplicatesComeIn", () => withDesk(async (page, desk) => {
  await openForecast(page);
  await setField(page, "years", "10");
  await setField(page, "most-litters-a-year", "2");
  await page.click("#make-forecast");
  await page.waitForFunction(() => /^\d+ of 100 replicates$/.test(document.querySelector("#forecast-progress").textContent));
  assert.ok(await charts(page) >= 6);
  await page.waitForFunction(() => document.querySelector("#forecast-progress").textContent === "100 of 100 replicates");
  assert.match(await textOf(page, "#forecast-body"), /present practice.*these rules.*litters of .* sires go to other sires/s);
  assert.equal(await page.$("#stop-forecast"), null);
  assert.deepEqual(await violations(page), []);
  const table = (await saved(desk, "Save the forecast", "forecast.tsv")).toString();
  assert.equal(table.trim().split("\n").length, 21, "ten years of two scenarios, and the headings");
}));

test("AForecastStopsAtOnceAndKeepsWhatThereIs", () => withDesk(async (page) => {
  await openForecast(page);
  await setField(page, "years", "200");
  await page.click("#make-forecast");
  await page.waitForSelector("#forecast-body svg");
  await page.click("#stop-forecast");
  await page.waitForFunction(() => document.querySelector("#forecast-progress").textContent.startsWith("stopped after"));
  const stopped = await progress(page);
  await new Promise((resolve) => { setTimeout(resolve, 1500); });
  assert.equal(await progress(page), stopped);
  assert.ok(await charts(page) >= 6);
}));

test("AFieldThatCannotBeReadIsNamed", () => withDesk(async (page) => {
  await openForecast(page);
  await setField(page, "most-f", "a lot");
  await page.click("#make-forecast");
  await idle(page);
  assert.match(await textOf(page, "#step"), /F of a litter at most.*an F such as/s);
  assert.equal(await charts(page), 0);
}));

test("FiguresOfThePracticeAndRulesThatAreSeldomUsedHaveFieldsToo", () => withDesk(async (page) => {
  await openForecast(page);
  await page.waitForSelector("#forecast-young-a-litter");
  const isOpen = () => page.$eval("#forecast-more", ({ open }) => open);
  assert.equal(await isOpen(), false);
  assert.deepEqual(await page.$$eval("#forecast-exchange option", (options) => options.map(({ value, text }) => `${value} ${text}`)),
    [" ", "open open", "closed closed", "rotation rotation"]);
  assert.equal(await page.$$eval("#forecast-sires", (fields) => fields.length), 1, "what has a field above has no other");
  await page.click("#forecast-more summary");
  await setField(page, "years", "5");
  await setField(page, "young-a-litter", "6,5");
  await page.select("#forecast-one-litter-a-dam", "yes");
  await page.click("#make-forecast");
  await page.waitForFunction(() => document.querySelector("#forecast-progress").textContent === "100 of 100 replicates");
  assert.match(await textOf(page, "#forecast-body"), /One litter a dam: yes.*goes on with what is said: young a litter: 6\.5/s);
  assert.equal(await isOpen(), true, "something stands in it");
  assert.equal(await page.$eval("#forecast-one-litter-a-dam", ({ value }) => value), "yes");
  assert.deepEqual(await violations(page), []);
  await setField(page, "same-sire-in-year", "0.1");
  await page.click("#make-forecast");
  await idle(page);
  assert.match(await textOf(page, "#step"), /this cannot be reached: with these sires and litters it comes to/);
}));

test("ASliderSetsItsRuleAndBeginsTheForecastAnew", () => withDesk(async (page) => {
  await openForecast(page);
  const slider = "#slider-most-litters-a-year";
  const valueText = () => page.$eval(slider, (input) => input.getAttribute("aria-valuetext"));
  const field = (name) => page.$eval(`#forecast-${name}`, ({ value }) => value);
  assert.equal(await valueText(), "no such rule");
  await setField(page, "years", "5");
  await page.focus(slider);
  await page.keyboard.press("Home");
  assert.deepEqual([await field("most-litters-a-year"), await valueText()], ["1", "1"]);
  await new Promise((resolve) => { setTimeout(resolve, 1000); });
  assert.equal(await charts(page), 0, "nothing begins before a forecast is asked for");
  await page.click("#make-forecast");
  const done = () => page.waitForFunction(() => document.querySelector("#forecast-progress").textContent === "100 of 100 replicates");
  await done();
  await page.focus(slider);
  await page.keyboard.press("ArrowRight");
  await page.keyboard.press("ArrowRight");
  assert.equal(await field("most-litters-a-year"), "3");
  await page.waitForFunction(() => document.querySelector("#forecast-progress").textContent !== "100 of 100 replicates");
  await done();
  assert.match(await textOf(page, "#forecast-body"), /Litters of a sire a year, at most: 3/);
  assert.equal(await page.evaluate(() => document.activeElement.id), slider.slice(1), "the keys go on moving it");
  assert.deepEqual(await violations(page), []);
}));

test("ASliderFollowsItsFieldAndSaysWhatItCannotShow", () => withDesk(async (page) => {
  await openForecast(page);
  const type = (name, text) => page.$eval(`#forecast-${name}`, (input, value) => {
    input.value = value;
    input.dispatchEvent(new Event("input"));
  }, text);
  const shown = (name) => page.$eval(`#slider-${name}`, (input) => [Number(input.value), input.className, input.getAttribute("aria-valuetext")]);
  await type("most-f", "6,25");
  assert.deepEqual(await shown("most-f"), [6, "", "6,25"]);
  await type("most-f", "7%");
  assert.deepEqual(await shown("most-f"), [6, "apart", "7%"]);
  await type("sires", "40");
  assert.deepEqual(await shown("sires"), [5, "apart", "40"]);
  await type("import-sires", "0");
  assert.deepEqual(await shown("import-sires"), [0, "apart", "0"]);
  await type("kinship-below", "");
  assert.deepEqual(await shown("kinship-below"), [0, "", "no such rule"]);
}));
