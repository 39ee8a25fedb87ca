// The forecast of the fifth step: rules in fields, common ones with a slider, and sentences and charts that are drawn anew
// while replicates come in. A slider that is moved begins a forecast that was made anew, with the rule as it is then.
// Other actions go on beside it: the worker makes replicates for a moment at a time.

import { Cancelled, ask } from "./client";
import { bytesOf, showProblem, text, work } from "./desk";
import type { Desk, DeskForecast } from "./desk";
import { afterPause, button, chooser, make, save, shownNumber } from "./dom";
import { afterPress } from "./press";
import type { ForecastAnswer, ForecastField, ForecastFields, GrownAnswer } from "./protocol";
import { hasSlider, makeSlider, whenLetGo } from "./rule_slider";
import type { TextName } from "./texts";
// The script of the page, which makes its charts readable with mouse and arrow keys.
import { readFigures } from "page-script";

/** How long the worker makes replicates before it shows them, in milliseconds. */
const slice = 500;
/** How long a slider stands still before the forecast begins anew, in milliseconds. */
const settling = 400;

const fields: readonly { name: string; label: TextName; hint?: string }[] = [
  { name: "years", label: "forecastYears", hint: "25" },
  { name: "most-litters-a-year", label: "forecastLittersAYear" }, { name: "most-litters-in-life", label: "forecastLittersInLife" },
  { name: "sires", label: "forecastSires", hint: "+5" }, { name: "litters", label: "forecastLitters", hint: "-10%" },
  { name: "most-f", label: "forecastMostF" }, { name: "kinship-below", label: "forecastKinship" },
  { name: "least-age-sires", label: "forecastAgeSires" }, { name: "least-age-dams", label: "forecastAgeDams" },
  { name: "import-sires", label: "forecastImportSires" }, { name: "import-dams", label: "forecastImportDams" },
];

/** Puts what there is into the page, without drawing anything else anew: somebody may be typing. */
function showGrown(desk: Desk, forecast: DeskForecast): void {
  const body = document.getElementById("forecast-body"), progress = document.getElementById("forecast-progress");
  if (body !== null) {
    body.innerHTML = forecast.grown?.html ?? "";  // written by the core, with every text in it escaped
    body.style.minHeight = "";
    queueMicrotask(readFigures);
  }
  if (progress !== null) progress.textContent = progressOf(desk, forecast);
}

function progressOf(desk: Desk, { grown, isWanted }: DeskForecast): string {
  if (grown === undefined) return "";
  const shown = (value: number) => shownNumber(value, desk.language);
  return text(desk, isWanted || grown.done === grown.replicates ? "forecastDone" : "forecastStopped", shown(grown.done), shown(grown.replicates));
}

/** Asks for replicates until there are enough, nobody wants more, or the forecast has been begun anew. */
async function grow(desk: Desk, forecast: DeskForecast): Promise<void> {
  const { turn } = forecast;
  const isAtHand = () => forecast.isWanted && forecast.turn === turn && desk.forecast === forecast;
  try {
    while (isAtHand()) {
      const grown = await ask<GrownAnswer>(desk.client, "growForecast", [slice]);
      if (!isAtHand()) break;
      forecast.problems = grown.messages;
      if (grown.messages.length > 0) break;
      forecast.grown = grown;
      forecast.isSaved = false;
      if (grown.done >= grown.replicates) break;
      afterPress(() => showGrown(desk, forecast));
    }
  } catch (problem) {
    if (!(problem instanceof Cancelled)) showProblem(text(desk, "failed", problem instanceof Error ? problem.message : String(problem)));
  }
  if (forecast.turn !== turn) return;
  forecast.isWanted = false;
  whenLetGo(desk.draw);
}

function begin(desk: Desk, forecast: DeskForecast): void {
  const turn = ++forecast.turn;
  forecast.isWanted = false;
  forecast.height = document.getElementById("forecast-body")?.offsetHeight ?? 0;
  void work(desk, async () => {
    if (turn !== forecast.turn) return;
    forecast.grown = undefined;
    const settings = [...forecast.fields].map(([name, value]) => `${name}=${value}`).join("\n");
    const answer = await ask<ForecastAnswer>(desk.client, "forecast", [settings]);
    if (turn !== forecast.turn) return;
    forecast.problems = answer.messages;
    forecast.isWanted = answer.messages.length === 0;
    if (forecast.isWanted) void grow(desk, forecast);
  });
}

function stop(desk: Desk, forecast: DeskForecast): void {
  forecast.isWanted = false;
  desk.draw();
}

/** Begins a forecast that was made anew, once its slider stands still. */
function afterSliding(desk: Desk, forecast: DeskForecast): () => void {
  return afterPause(settling, () => whenLetGo(() => {
    const isAtHand = desk.forecast === forecast && document.getElementById("make-forecast") !== null;
    if (isAtHand && forecast.turn > 0) begin(desk, forecast);
  }));
}

/** What the core has fields for, in the language of the desk. */
let listed: { language: string; fields: ForecastField[] } | undefined;

function drawListed(forecast: DeskForecast, { name, label, choices }: ForecastField): HTMLElement {
  const id = `forecast-${name}`, value = forecast.fields.get(name) ?? "";
  if (name === "") return make("p", { class: "hint" }, label);
  const keep = (typed: string) => void forecast.fields.set(name, typed.trim());
  const input = choices.length > 0 ? chooser([{ value: "", text: "" }, ...choices], value, keep, { id }) : make("input", { type: "text", id, value, size: 5, spellcheck: "false", change: (event: Event) => keep((event.target as HTMLInputElement).value) });
  return make("span", {}, make("label", { for: id }, label), " ", input);
}

/** Rules that are seldom asked for, and figures of the practice: closed as long as nothing stands in any of them. */
function drawMore(desk: Desk, forecast: DeskForecast): HTMLElement {
  const row = make("div", { class: "row" }), isMain = (name: string) => fields.some((field) => field.name === name);
  const fill = (all: ForecastField[]) => row.append(...all.filter(({ name }) => !isMain(name)).map((field) => drawListed(forecast, field)));
  const { language } = desk;
  if (listed?.language === language) fill(listed.fields);
  else void ask<ForecastFields>(desk.client, "forecastFields", []).then((answer) => {
    listed = { language, fields: answer.fields };
    fill(listed.fields);
  }, () => undefined);
  const isUsed = [...forecast.fields].some(([name, value]) => value !== "" && !isMain(name));
  return make("details", { open: isUsed, id: "forecast-more" }, make("summary", {}, text(desk, "forecastMore")), row);
}

function drawFields(desk: Desk, forecast: DeskForecast): HTMLElement {
  const beginSoon = afterSliding(desk, forecast);
  const drawn = fields.map(({ name, label, hint }) => {
    const input = make("input", { type: "text", id: `forecast-${name}`, value: forecast.fields.get(name) ?? "", placeholder: hint, size: 5, spellcheck: "false" });
    input.addEventListener("change", () => forecast.fields.set(name, input.value.trim()));
    const slider = !hasSlider(name) ? null : makeSlider(name, text(desk, label), desk.language, input, (value) => {
      forecast.fields.set(name, value);
      beginSoon();
    });
    return make("span", {}, make("label", { for: `forecast-${name}` }, text(desk, label)), " ", slider, slider === null ? null : " ", input);
  });
  return make("div", { class: "row" }, ...drawn, drawMore(desk, forecast),
    button(text(desk, "makeForecast"), () => begin(desk, forecast), { class: "main", id: "make-forecast" }),
    forecast.isWanted ? button(text(desk, "stopForecast"), () => stop(desk, forecast), { id: "stop-forecast" }) : null);
}

function drawKept(desk: Desk, forecast: DeskForecast): HTMLElement {
  const keep = (label: TextName, name: string, file: string, type: string) =>
    button(text(desk, label), () => void work(desk, async () => {
      const { grown } = forecast;
      save(file, await bytesOf(desk, name), type);
      if (grown === forecast.grown) forecast.isSaved = true;  // no more replicates came meanwhile
    }));
  return make("p", { class: "row" }, keep("saveForecast", "forecast", "forecast.tsv", "text/tab-separated-values"),
    keep("saveForecastPage", "forecastPage", "forecast.html", "text/html"));
}

export function drawForecast(desk: Desk): HTMLElement[] {
  const forecast: DeskForecast = desk.forecast ??= { fields: new Map(), problems: [], isWanted: false, turn: 0, height: 0 };
  const body = make("div", { class: "pw", id: "forecast-body" });
  body.innerHTML = forecast.grown?.html ?? "";  // written by the core, with every text in it escaped
  // Where a forecast begins anew the page does not jump.
  if (forecast.grown === undefined && forecast.problems.length === 0) body.style.minHeight = `${forecast.height}px`;
  if (forecast.grown !== undefined) queueMicrotask(readFigures);
  return [make("h2", {}, text(desk, "forecastTitle")), make("p", { class: "hint" }, text(desk, "forecastHint")), drawFields(desk, forecast),
    ...forecast.problems.map((problem) => make("p", { class: "problem", role: "alert" }, problem)),
    make("p", { id: "forecast-progress", role: "status" }, progressOf(desk, forecast)),
    ...(forecast.grown === undefined ? [] : [drawKept(desk, forecast)]), body];
}
