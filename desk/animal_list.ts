// All animals of the results as a table: sorted by a press on a heading, filtered, and shown in windows that the worker
// cuts out of its own arrays. Each identification opens its card.

import { animalButton } from "./card";
import { ask } from "./client";
import { text } from "./desk";
import type { Desk } from "./desk";
import { afterPause, button, chooser, decimal, make, nameOf, percentage, shownNumber, turnOver } from "./dom";
import { keepFocus } from "./focus";
import { createPaper, mostPrinted } from "./paper";
import type { Paper, PrintedRows } from "./paper";
import type { AnimalListRow } from "./protocol";
import type { TextName } from "./texts";

const rowsShown = 100;
const numberFields = ["firstYear", "lastYear", "leastF", "mostF", "leastKinship", "mostKinship"];

/** What is asked for, by the names of src/desk/all_animals_desk.h, and the place of the window. */
export interface AnimalList { wishes: Map<string, string>; first: number; }

export function newAnimalList(): AnimalList {
  return { wishes: new Map([["order", "year"], ["isDescending", "1"]]), first: 0 };
}

interface Column { order?: string; heading: TextName; isNumber: boolean; cell: (desk: Desk, row: AnimalListRow) => Node | string; }

const columns: Column[] = [
  { order: "id", heading: "id", isNumber: false, cell: (_desk, row) => animalButton(row) },
  { order: "name", heading: "nameOfAnimal", isNumber: false, cell: (_desk, row) => nameOf(row.name === "-" ? "" : row.name) },
  { heading: "sex", isNumber: false, cell: (desk, row) => text(desk, row.isMale ? "maleSex" : "femaleSex") },
  { order: "year", heading: "born", isNumber: true, cell: (_desk, row) => (row.year === 0 ? "–" : String(row.year)) },
  { order: "f", heading: "fOfAnimal", isNumber: true, cell: (desk, row) => percentage(row.f, desk.language) },
  { order: "kinship", heading: "meanKinship", isNumber: true, cell: (desk, row) => percentage(row.meanKinship, desk.language) },
  { order: "generations", heading: "generationsKnown", isNumber: true, cell: (desk, row) => decimal(row.generations, desk.language) },
  { order: "offspring", heading: "youngOf", isNumber: true, cell: (desk, row) => shownNumber(row.offspring, desk.language) },
  { heading: "subpopulation", isNumber: false, cell: (_desk, row) => nameOf(row.subpopulation) },
];

/** The names of several subpopulations, by number. */
const namesOf = (desk: Desk) => desk.run?.subpopulations ?? [];

/** The parts of the table that change with each answer; `chosen`: so many animals the worker has chosen already. */
interface Parts {
  list: AnimalList; chosen?: number; body: HTMLElement; place: HTMLElement; before: HTMLButtonElement; after: HTMLButtonElement; paper: Paper;
}
interface ChosenAnimals { count: number; unread: string[]; }

let newest = 0;  // the last question: answers to earlier ones come too late

async function show(desk: Desk, parts: Parts): Promise<void> {
  const mine = ++newest, { list } = parts;
  const wishes = [...list.wishes].map(([name, value]) => `${name}=${value}`).join("\n");
  const answer = parts.chosen === undefined ? await ask<ChosenAnimals>(desk.client, "chooseAnimals", [wishes]) : undefined;
  if (answer !== undefined && mine === newest) sayUnread(desk, list, answer.unread);
  const count = parts.chosen ?? answer?.count ?? 0;
  if (list.first >= count) list.first = Math.max(0, Math.ceil(count / rowsShown) - 1) * rowsShown;
  const { rows } = await ask<{ rows: AnimalListRow[] }>(desk.client, "listAnimals", [list.first, rowsShown]);
  if (mine !== newest) return;
  parts.chosen = count;
  const shownColumns = columnsOf(desk);
  keepFocus(parts.body, () => parts.body.replaceChildren(...rows.map((row) => make("tr", {}, ...shownColumns.map((column) =>
    make("td", { class: column.isNumber ? "number" : "" }, column.cell(desk, row)))))));
  const shown = (value: number) => shownNumber(value, desk.language);
  parts.place.textContent = count === 0 ? text(desk, "noAnimals")
    : text(desk, "showing", shown(list.first + 1), shown(Math.min(list.first + rowsShown, count)), shown(count));
  turnOver(parts.before, parts.after, list.first === 0, list.first + rowsShown >= count);
  parts.paper.renew();
}

/** Says at each field what of it cannot be read. */
function sayUnread(desk: Desk, list: AnimalList, unread: string[]): void {
  for (const name of numberFields) {
    const isUnread = unread.includes(name), problem = document.getElementById(`animals-${name}-problem`);
    document.getElementById(`animals-${name}`)?.setAttribute("aria-invalid", String(isUnread));
    if (problem !== null) problem.textContent = isUnread ? text(desk, "notRead", list.wishes.get(name) ?? "") : "";
  }
}

/** What is printed: the same columns, from the first row on. */
async function printedRows(desk: Desk, parts: Parts): Promise<PrintedRows> {
  const { rows } = await ask<{ rows: AnimalListRow[] }>(desk.client, "listAnimals", [0, mostPrinted]);
  const shownColumns = columnsOf(desk);
  return { headings: shownColumns.map(({ heading }) => text(desk, heading)), count: parts.chosen ?? rows.length, button: text(desk, "saveAnimals"),
    file: `${(desk.run?.reportName ?? "report.out").replace(/\.[^.]*$/, "")}_animals.tsv`,
    rows: rows.map((row) => shownColumns.map((column) => (column.order === "id" ? nameOf(row.id) : column.cell(desk, row)))) };
}

function columnsOf(desk: Desk): Column[] {
  return namesOf(desk).length > 0 ? columns : columns.filter(({ heading }) => heading !== "subpopulation");
}

function drawHeading(desk: Desk, list: AnimalList, column: Column, sort: (order: string) => void): HTMLElement {
  const { order, heading, isNumber } = column;
  const isOrder = order !== undefined && list.wishes.get("order") === order, isDescending = list.wishes.get("isDescending") === "1";
  const words = `${text(desk, heading)}${isOrder ? (isDescending ? " ▼" : " ▲") : ""}`;
  return make("th", { scope: "col", class: isNumber ? "number" : "", "aria-sort": isOrder ? (isDescending ? "descending" : "ascending") : undefined },
    order === undefined ? words : button(words, () => sort(order), { class: "press", id: `sort-${order}` }));
}

function drawFilters(desk: Desk, list: AnimalList, showSoon: () => void): HTMLElement {
  const say = (name: string, value: string) => {
    if (value.trim() === "") list.wishes.delete(name);
    else list.wishes.set(name, value.trim());
    list.first = 0;
    showSoon();
  };
  const field = (name: string, label: string, size: number, mode: "text" | "numeric" | "decimal") => {
    const input = make("input", { type: "text", id: `animals-${name}`, size, inputmode: mode, value: list.wishes.get(name) ?? "" });
    input.addEventListener("input", () => say(name, input.value));
    if (mode === "text") return make("label", {}, `${label} `, input);
    input.setAttribute("aria-describedby", `animals-${name}-problem`);
    return make("span", {}, make("label", {}, `${label} `, input), make("span", { class: "unread", id: `animals-${name}-problem`, role: "status" }));
  };
  const choice = (name: string, label: string, choices: { value: string; text: string }[]) => make("label", {}, `${label} `,
    chooser([{ value: "", text: text(desk, "any") }, ...choices], list.wishes.get(name) ?? "", (value) => say(name, value), { id: `animals-${name}` }));
  const sexes = [{ value: "male", text: text(desk, "maleSex") }, { value: "female", text: text(desk, "femaleSex") }];
  const names = namesOf(desk).map((name, k) => ({ value: String(k + 1), text: name }));
  return make("div", { class: "row", role: "group", "aria-label": text(desk, "filterAnimals") }, field("text", text(desk, "idOrName"), 18, "text"),
    field("firstYear", text(desk, "bornFrom"), 5, "numeric"), field("lastYear", text(desk, "bornTo"), 5, "numeric"), choice("sex", text(desk, "sex"), sexes),
    names.length === 0 ? null : choice("subpopulation", text(desk, "subpopulation"), names),
    field("leastF", text(desk, "fFrom"), 5, "decimal"), field("mostF", text(desk, "upTo"), 5, "decimal"),
    field("leastKinship", text(desk, "kinshipFrom"), 5, "decimal"), field("mostKinship", text(desk, "upTo"), 5, "decimal"));
}

export function drawAnimalList(desk: Desk): HTMLElement {
  const list = desk.animalList ??= newAnimalList();
  const body = make("tbody"), place = make("span", { role: "status", id: "animals-place" });
  const move = (by: number) => {
    list.first = Math.max(0, list.first + by);
    showNow();
  };
  const before = button(text(desk, "before"), () => move(-rowsShown), { id: "animals-before" });
  const after = button(text(desk, "after"), () => move(rowsShown), { id: "animals-after" });
  const paper: Paper = createPaper(desk, "animals-paper", () => printedRows(desk, parts));
  const parts: Parts = { list, body, place, before, after, paper };
  const showNow = () => void show(desk, parts).catch(() => undefined);
  const chooseAgain = () => {
    parts.chosen = undefined;
    showNow();
  };
  const sort = (order: string) => {
    const isAgain = list.wishes.get("order") === order, wasDescending = list.wishes.get("isDescending") === "1";
    list.wishes.set("order", order);
    list.wishes.set("isDescending", isAgain ? (wasDescending ? "0" : "1") : order === "id" || order === "name" ? "0" : "1");
    list.first = 0;
    desk.draw();
  };
  const headings = columnsOf(desk).map((column) => drawHeading(desk, list, column, sort));
  showNow();
  return make("div", {}, paper.element, drawFilters(desk, list, afterPause(200, chooseAgain)), make("p", { class: "row" }, before, after, place),
    make("div", { class: "scroll window", tabindex: 0, role: "region", "aria-label": text(desk, "allAnimals") },
      make("table", { class: "plain", id: "all-animals" }, make("thead", {}, make("tr", {}, ...headings)), body)));
}
