// The list of animals that their breeder leaves out of rankings and plans, each with a reason: dead, sold, not for
// breeding. It is kept as NAME_left_out.tsv and dropped together with the next export.

import { animalButton } from "./card";
import { stemOf, tellLeftOut, text, work } from "./desk";
import type { Desk, LeftOutRow } from "./desk";
import { button, make, nameOf, save } from "./dom";
import { drawSearch } from "./search";
import type { Animal } from "./protocol";

const heading = "id\twhy\twhen";

/** Whether a text is such a list: its first line says so. */
export function isListOfLeftOut(text: string): boolean {
  return text.replace(/"/g, "").replace(/^\ufeff/, "").startsWith(heading);
}

/** A cell without the quotation marks that a spreadsheet puts around some. */
const unquoted = (cell: string) => (/^".*"$/s.test(cell) ? cell.slice(1, -1).replace(/""/g, '"') : cell).trim();

/** The animals of a list; one that stands twice counts once, with what is said of it last. */
export function readLeftOut(list: string): LeftOutRow[] {
  const rows = new Map<string, LeftOutRow>();
  for (const line of list.replace(/^\ufeff/, "").split(/\r?\n|\r/)) {
    const [id = "", why = "", when = ""] = line.split("\t").map(unquoted);
    if (id !== "" && [id, why, when].join("\t") !== heading) rows.set(id, { id, why, when });
  }
  return [...rows.values()];
}

const written = (cell: string) => {
  const plain = cell.replace(/[\t\r\n]/g, " ");
  return plain.startsWith('"') ? `"${plain.replace(/"/g, '""')}"` : plain;
};

function saveLeftOut(rows: LeftOutRow[], fileName: string): void {
  const lines = rows.map(({ id, why, when }) => [id, why, when].map(written).join("\t"));
  save(`${stemOf(fileName)}_left_out.tsv`, [heading, ...lines, ""].join("\n"), "text/tab-separated-values");
}

/** Takes other rows: rankings follow at once, and a plan is said to be of before. */
export function changeLeftOut(desk: Desk, rows: LeftOutRow[], then: () => Promise<void>): Promise<boolean> {
  return work(desk, async () => {
    desk.leftOut.rows = rows;
    desk.leftOut.isSaved = rows.length === 0;
    if (desk.plan?.answer !== undefined) desk.plan.isOfBefore = true;
    if (desk.run === undefined) return;
    await tellLeftOut(desk);
    await then();
  });
}

function today(): string {
  const now = new Date(), two = (number: number) => String(number).padStart(2, "0");
  return `${now.getFullYear()}-${two(now.getMonth() + 1)}-${two(now.getDate())}`;
}

/** The list with an animal more. */
export function withAnimal(desk: Desk, id: string, why: string): LeftOutRow[] {
  return [...desk.leftOut.rows.filter((row) => row.id !== id), { id, why: why.trim(), when: today() }];
}

/** Reasons that are proposed; any other can be typed. */
export function drawReasons(desk: Desk): HTMLElement {
  const reasons = ["reasonDead", "reasonSold", "reasonNeutered", "reasonDefect", "reasonNotBred"] as const;
  return make("datalist", { id: "reasons" }, ...reasons.map((name) => make("option", { value: text(desk, name) })));
}

function drawRow(desk: Desk, place: number, then: () => Promise<void>): HTMLElement {
  const { rows } = desk.leftOut, row = rows[place];
  if (row === undefined) return make("tr");
  const why = make("input", { type: "text", value: row.why, size: 24, list: "reasons", id: `left-out-why-${place}`, "aria-label": `${text(desk, "why")}: ${row.id}` });
  why.addEventListener("change", () => {
    row.why = why.value.trim();
    desk.leftOut.isSaved = false;
  });
  const takeBack = button(text(desk, "takeBack"), () => void changeLeftOut(desk, rows.filter((_row, k) => k !== place), then)
    .then(() => (document.getElementById(`take-back-${Math.min(place, desk.leftOut.rows.length - 1)}`) ?? document.getElementById("search-left-out"))?.focus()),
  { id: `take-back-${place}`, "aria-label": `${text(desk, "takeBack")}: ${row.id}` });
  const { animal } = row;
  return make("tr", {}, make("th", { scope: "row" }, animal === undefined ? nameOf(row.id) : animalButton(animal)),
    make("td", {}, animal === undefined ? text(desk, "notInData") : nameOf(animal.name === "-" ? "" : animal.name)), make("td", {}, why),
    make("td", {}, row.when), make("td", {}, takeBack));
}

/** The list, where an animal can be added and taken back. `then` does what hangs on it anew. */
export function drawLeftOut(desk: Desk, then: () => Promise<void>): HTMLElement[] {
  const { rows } = desk.leftOut;
  const add = (animal: Animal) => void changeLeftOut(desk, withAnimal(desk, animal.id, ""), then)
    .then(() => document.getElementById(`left-out-why-${desk.leftOut.rows.length - 1}`)?.focus());
  const headings = (["id", "nameOfAnimal", "why", "when", "takeBack"] as const).map((name) => make("th", { scope: "col" }, text(desk, name)));
  const keep = () => {
    saveLeftOut(rows, desk.files[0]?.name ?? "export");
    desk.leftOut.isSaved = true;
  };
  return [make("h2", { id: "left-out-title" }, text(desk, "leftOutTitle")), make("p", { class: "hint" }, text(desk, "leftOutHint")), drawReasons(desk),
    drawSearch(desk, { id: "search-left-out", sex: 0, take: add, label: [document.createTextNode(text(desk, "leaveOutAnother"))] }),
    ...(rows.length === 0 ? [] : [make("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": text(desk, "leftOutTitle") },
      make("table", { class: "plain", id: "left-out" }, make("thead", {}, make("tr", {}, ...headings)), make("tbody", {}, ...rows.map((_row, k) => drawRow(desk, k, then))))),
    make("p", { class: "row" }, button(text(desk, "saveLeftOut"), keep, { id: "save-left-out" }))])];
}

/** How many animals of the list take no part in what stands below. */
export function drawLeftOutNote(desk: Desk): HTMLElement[] {
  const count = desk.leftOut.rows.filter(({ animal }) => animal !== undefined).length;
  return count === 0 ? [] : [make("p", { class: "note" }, text(desk, "leftOutCount", count))];
}

/** The list of a file that was open before, as long as it has not been saved. */
export function drawFormerLeftOut(desk: Desk): HTMLElement[] {
  const { former } = desk.leftOut;
  if (former === undefined) return [];
  const done = (action: () => void) => () => {
    desk.leftOut.former = undefined;
    action();
    desk.draw();
  };
  const use = () => {
    desk.leftOut.rows = former.rows;
    desk.leftOut.isSaved = false;
  };
  return [make("div", { class: "question", id: "former-left-out" }, make("p", {}, text(desk, "formerLeftOut", former.name)), make("p", { class: "row" },
    button(text(desk, "saveLeftOut"), done(() => saveLeftOut(former.rows, former.name))),
    button(text(desk, "useHere"), done(use)), button(text(desk, "drop"), done(() => undefined))))];
}
