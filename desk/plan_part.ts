// The plan of the fifth step: three fields and limits, the comparison, and the matings, which can be changed by hand.

import { animalButton } from "./card";
import { ask } from "./client";
import { bytesOf, text, work } from "./desk";
import type { Desk, DeskPlan } from "./desk";
import { drawLeftOutNote } from "./left_out";
import { button, make, nameOf, percentage, save, shownNumber } from "./dom";
import { goneMark } from "./search";
import { workbookOf, workbookType } from "./workbook";
import type { Animal, PlanAnswer, PlanRow } from "./protocol";
import type { TextName } from "./texts";

const rowsShown = 50;

const fields: readonly { name: string; label: TextName; step: string }[] = [
  { name: "years", label: "planYears", step: "1" }, { name: "matings", label: "planMatings", step: "1" },
  { name: "mostPerMale", label: "planPerMale", step: "1" }, { name: "mostPerFemale", label: "planPerFemale", step: "1" },
  { name: "leastPerMale", label: "planLeastPerMale", step: "1" }, { name: "mostF", label: "planMostF", step: "any" },
  { name: "rate", label: "planRate", step: "any" },
];

/** Lists that can be typed or pasted, an animal or pair a line. */
const lists: readonly { name: string; label: TextName; hint: string }[] = [
  { name: "males", label: "planMales", hint: "" }, { name: "females", label: "planFemales", hint: "" },
  { name: "exclude", label: "planExclude", hint: "" }, { name: "numbers", label: "planNumbers", hint: "NL-1 2-3" },
  { name: "values", label: "planValues", hint: "NL-1 104" }, { name: "forbidden", label: "planForbidden", hint: "NL-1 NL-2" },
  { name: "wished", label: "planWished", hint: "NL-1 NL-2" },
];
const lineDivider = "\u001e";

async function listRows(desk: Desk, plan: DeskPlan, first: number): Promise<void> {
  const { rows } = await ask<{ rows: PlanRow[] }>(desk.client, "listPlan", [first, rowsShown]);
  plan.first = first;
  plan.rows = rows;
}

/** Takes what came of a question; where something stands in the way, what was there stays. */
async function take(desk: Desk, plan: DeskPlan, answer: PlanAnswer): Promise<void> {
  plan.problems = answer.messages;
  plan.swapping = undefined;
  if (answer.messages.length > 0) return;
  plan.answer = answer;
  plan.isSaved = false;
  await listRows(desk, plan, plan.first);
}

function makePlan(desk: Desk, plan: DeskPlan): void {
  void work(desk, async () => {
    plan.answer = undefined;
    plan.isOfBefore = false;
    plan.first = 0;
    const settings = [...plan.fields].map(([name, value]) => `${name}=${value.replace(/\r?\n/g, lineDivider)}`).concat(desk.takesGone === true ? ["allAnimals=1"] : []).join("\n");
    await take(desk, plan, await ask<PlanAnswer>(desk.client, "plan", [settings]));
  });
}

function change(desk: Desk, plan: DeskPlan, what: "fix" | "forbid" | "swap", place: number, other = 0): void {
  void work(desk, async () => take(desk, plan, await ask<PlanAnswer>(desk.client, "changePlan", [what, place, other])));
}

/** Closed as long as nothing stands in any of them: most plans need none. */
function drawLists(desk: Desk, plan: DeskPlan): HTMLElement {
  const areas = lists.map(({ name, label, hint }) => {
    const area = make("textarea", { id: `plan-${name}`, rows: 3, cols: 22, placeholder: hint, spellcheck: "false" });
    area.value = plan.fields.get(name) ?? "";
    area.addEventListener("change", () => plan.fields.set(name, area.value));
    return make("span", {}, make("label", { for: `plan-${name}` }, text(desk, label)), make("br"), area);
  });
  const isUsed = lists.some(({ name }) => (plan.fields.get(name) ?? "").trim() !== "");
  return make("details", { open: isUsed, id: "plan-lists" }, make("summary", {}, text(desk, "planLists")),
    make("p", { class: "hint" }, text(desk, "planListsHint")), make("p", { class: "row" }, ...areas));
}

function drawFields(desk: Desk, plan: DeskPlan): HTMLElement[] {
  const drawn = fields.map(({ name, label, step }) => {
    const input = make("input", { type: "text", id: `plan-${name}`, inputmode: step === "1" ? "numeric" : "decimal", value: plan.fields.get(name) ?? "", size: 6 });
    input.addEventListener("change", () => plan.fields.set(name, input.value.trim()));
    return make("span", {}, make("label", { for: `plan-${name}` }, text(desk, label)), " ", input);
  });
  return [make("p", { class: "row" }, ...drawn.slice(0, 2)), drawLists(desk, plan), make("p", { class: "row" }, ...drawn.slice(2),
    button(text(desk, "makePlan"), () => makePlan(desk, plan), { class: "main", id: "make-plan" })), make("p", { class: "hint" }, text(desk, "planHint"))];
}

function drawComparison(desk: Desk, answer: PlanAnswer): HTMLElement {
  const headings = answer.headings.map((heading, k) => make("th", { scope: "col", class: k === 0 ? "" : "number" }, heading));
  const rows = answer.ways.map(([way = "", ...cells]) => make("tr", {}, make("th", { scope: "row" }, way),
    ...cells.map((cell) => make("td", { class: "number" }, cell === "" ? "–" : cell))));
  return make("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": text(desk, "planCompared") },
    make("table", { class: "plain", id: "plan-compared" }, make("caption", {}, text(desk, "planCompared")),
      make("thead", {}, make("tr", {}, ...headings)), make("tbody", {}, ...rows)));
}

function drawRow(desk: Desk, plan: DeskPlan, row: PlanRow, place: number): HTMLElement {
  const pair = `${row.female.id} × ${row.male.id}`;
  const named = (name: TextName) => ({ "aria-label": `${text(desk, name)}: ${pair}` });
  const isOther = plan.swapping !== undefined && plan.swapping !== place;
  const swap = isOther
    ? button(text(desk, "planSwapHere"), () => change(desk, plan, "swap", plan.swapping ?? place, place), named("planSwapHere"))
    : button(text(desk, plan.swapping === place ? "planSwapNot" : "planSwap"), () => {
      plan.swapping = plan.swapping === place ? undefined : place;
      desk.draw();
    }, named(plan.swapping === place ? "planSwapNot" : "planSwap"));
  const fix: TextName = row.isFixed ? "planLoosen" : "planFix";
  const cells = (animal: Animal) => [make("td", {}, animalButton(animal)), make("td", {}, nameOf(animal.name === "-" ? "" : animal.name), goneMark(desk, animal))];
  return make("tr", {}, ...cells(row.female), ...cells(row.male), make("td", { class: "number" }, percentage(row.f, desk.language)),
    make("td", {}, button(text(desk, fix), () => change(desk, plan, "fix", place), named(fix)), " ",
      button(text(desk, "planForbid"), () => change(desk, plan, "forbid", place), named("planForbid")), " ", swap));
}

function drawMatings(desk: Desk, plan: DeskPlan, answer: PlanAnswer): HTMLElement[] {
  const shown = (value: number) => shownNumber(value, desk.language);
  const heading = (name: TextName, isNumber = false) => make("th", { scope: "col", class: isNumber ? "number" : "" }, text(desk, name));
  const move = (first: number) => void work(desk, () => listRows(desk, plan, Math.max(0, first)));
  const keep = (label: TextName, file: string, type: string, bytes: () => Promise<Uint8Array>, hasMatings = true) =>
    button(text(desk, label), () => void work(desk, async () => {
      save(file, await bytes(), type);
      if (hasMatings) plan.isSaved = true;
    }));
  return [make("p", {}, `${text(desk, "planMeanF")}: `, make("span", { class: "figure", id: "plan-mean-f" }, percentage(answer.meanF, desk.language))),
    make("p", { class: "row" }, keep("savePlan", "plan.tsv", "text/tab-separated-values", () => bytesOf(desk, "plan")),
      keep("saveContributions", "contributions.tsv", "text/tab-separated-values", () => bytesOf(desk, "contributions"), false),
      keep("savePlanPage", "plan.html", "text/html", () => bytesOf(desk, "planPage")),
      keep("savePlanWorkbook", "plan.xlsx", workbookType, () => workbookOf(desk, "planWorkbook"))),
    make("p", { class: "row" }, button(text(desk, "before"), () => move(plan.first - rowsShown), { disabled: plan.first === 0 }),
      button(text(desk, "after"), () => move(plan.first + rowsShown), { disabled: plan.first + rowsShown >= answer.count }),
      make("span", { role: "status" }, text(desk, "showing", shown(plan.first + 1), shown(Math.min(plan.first + rowsShown, answer.count)), shown(answer.count)))),
    make("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": text(desk, "planPairs") },
      make("table", { class: "plain", id: "plan-pairs" }, make("thead", {}, make("tr", {}, heading("female"), heading("nameOfAnimal"), heading("male"),
        heading("nameOfAnimal"), heading("offspringF", true), heading("planByHand"))),
      make("tbody", {}, ...plan.rows.map((row, k) => drawRow(desk, plan, row, plan.first + k)))))];
}

export function drawPlan(desk: Desk): HTMLElement[] {
  const plan = desk.plan ??= { fields: new Map([["mostPerFemale", "1"]]), problems: [], first: 0, rows: [] };
  const { answer } = plan;
  return [make("h2", {}, text(desk, "planTitle")), ...drawFields(desk, plan), ...drawLeftOutNote(desk),
    ...(plan.isOfBefore === true ? [make("p", { class: "question", id: "plan-of-before" }, text(desk, "planOfBefore"))] : []),
    ...plan.problems.map((problem) => make("p", { class: "problem", role: "alert" }, problem)),
    ...(answer === undefined ? [] : [...answer.warnings.map((warning) => make("p", { class: "problem" }, warning)),
      ...[...answer.candidates, ...answer.lines].map((line) => make("p", { class: "note" }, line)), drawComparison(desk, answer), ...drawMatings(desk, plan, answer)])];
}
