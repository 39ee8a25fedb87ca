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
