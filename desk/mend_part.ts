// Mending in the check: the lines of a finding as a table with cells that can be changed, and the list of corrections
// with undo and redo. The export stays as it is; the core applies the list whenever it changes.

import { ask } from "./client";
import { applyList, ensureCheck, forgetResults, isReady, printAlone, stemOf, text, work } from "./desk";
import type { Desk } from "./desk";
import { button, make, nameOf, save, shownNumber } from "./dom";
import { workbookOf, workbookType } from "./workbook";
import type { CheckAnswer, CorrectionRow, FindingLines, ProposedList } from "./protocol";

/** Takes another list of corrections: applies it, checks again, and shows the same kind of findings as before. */
async function takeList(desk: Desk, list: string): Promise<void> {
  forgetResults(desk);
  desk.corrections.list = list;
  desk.corrections.isSaved = list === "";
  desk.corrections.answer = undefined;
  await applyList(desk);
  if (!isReady(desk)) desk.step = "data";  // what a new text means is asked there
  if (desk.step !== "check") return;
  await ensureCheck(desk);
  const found = desk.check as CheckAnswer | undefined;
  if (found?.kinds.some(({ name }) => name === desk.kind) === true) return;
  desk.kind = desk.filter = "";
  desk.firstFinding = 0;
}

/** Replaces the list, so that it can be undone. The focus stays near: the cell that had it is gone. */
function change(desk: Desk, propose: () => Promise<{ list: string } | undefined>): void {
  void work(desk, async () => {
    desk.refusedCell = undefined;
    const before = desk.corrections.list, list = (await propose())?.list ?? before;
    if (list === before || desk.export === undefined) return;
    desk.corrections.undo.push(before);
    desk.corrections.redo = [];
    await takeList(desk, list);
  }).then(() => {
    if (desk.refusedCell === undefined) document.getElementById("undo")?.focus({ preventScroll: true });
  });
}

/** Goes from one list to the one before or behind it. */
function goBack(desk: Desk, from: "undo" | "redo"): void {
  const { corrections } = desk;
  if (desk.busy > 0 || corrections[from].length === 0) return;
  void work(desk, async () => {
    const list = corrections[from].pop() ?? "";
    corrections[from === "undo" ? "redo" : "undo"].push(corrections.list);
    await takeList(desk, list);
  }).then(() => (document.querySelector<HTMLElement>(`#${from}:not([disabled])`) ?? document.querySelector<HTMLElement>("#undo, #redo"))?.focus({ preventScroll: true }));
}

/** Adds a list of earlier corrections behind those that are there. */
export function addList(desk: Desk, list: string): void {
  change(desk, async () => ({ list: desk.corrections.list + list }));
}

/** An animal of the export: its line, and which of several on that line. */
interface Place { line: number; animal: number; }

/** A cell with a text that it cannot get, and why. */
export interface RefusedCell extends Place { field: string; typed: string; why: string; isNew: boolean; }

function correct(desk: Desk, { line, animal }: Place, field: string, becomes: string, everywhere = false): void {
  change(desk, async () => {
    const proposed = await ask<ProposedList>(desk.client, "correct", [line, animal, field, becomes, everywhere ? 1 : 0]);
    if (proposed.refused === "") return proposed;
    desk.refusedCell = { line, animal, field, typed: becomes.trim(), why: proposed.refused, isNew: true };
    return undefined;
  });
}

/** Makes dates or parents of all animals of a kind of finding unknown; of all kinds that stop the run without one. */
export function goOnWithout(desk: Desk, kind: string, what: "dates" | "parents"): void {
  change(desk, () => ask<ProposedList>(desk.client, "goOn", [kind, what]));
}

/** The day of a number of days, below the number. */
function dayOf(day?: string): HTMLElement | null {
  return day === undefined ? null : make("small", { class: "day" }, `= ${day}`);
}

function isRefused({ refusedCell }: Desk, { line, animal }: Place, field: string): boolean {
  return refusedCell?.line === line && refusedCell.animal === animal && refusedCell.field === field;
}

/** Why a cell cannot get what was typed; of an identification that another animal has, that the two may be one. */
function drawRefusal(desk: Desk, place: Place, id: string): HTMLElement | null {
  const { refusedCell } = desk;
  if (refusedCell === undefined || !isRefused(desk, place, refusedCell.field)) return null;
  const isTaken = refusedCell.field === "id" && id !== "" && refusedCell.typed !== "";
  return make("div", { class: "refusal" }, make("p", { id: "refused-why", role: "alert" }, refusedCell.why),
    isTaken ? button(text(desk, "sameAnimal", id, refusedCell.typed), () => correct(desk, place, "same as", refusedCell.typed)) : null);
}

function drawCell(desk: Desk, place: Place, cell: string, field: string, heading: string, classes: string, day?: string): HTMLElement {
  if (field === "") return make("td", {}, nameOf(cell));
  const isWrong = isRefused(desk, place, field), shown = isWrong ? desk.refusedCell?.typed ?? cell : cell;
  const input = make("input", { type: "text", value: shown, size: Math.max(6, Math.min(24, shown.length + 1)), "aria-label": text(desk, "cellOf", heading, place.line),
    class: classes, ...(isWrong ? { "aria-invalid": "true", "aria-describedby": "refused-why" } : {}) });
  input.addEventListener("change", () => {
    if (input.value.trim() !== cell || isWrong) correct(desk, place, field, input.value);
  });
  input.addEventListener("keydown", ({ key }) => {
    if (key !== "Escape" || !isWrong) return;
    desk.refusedCell = undefined;
    desk.draw();
  });
  return make("td", {}, input, dayOf(day));
}

function drawLine(desk: Desk, lines: FindingLines, row: FindingLines["rows"][number], isFirst: boolean): HTMLElement {
  const headings = lines.headings ?? [];
  const cells = headings.map((heading, k) => drawCell(desk, row, row.cells[k] ?? "", lines.fields[k] ?? "", heading, isFirst && k === lines.column ? "meant" : "",
    lines.fields[k] === "birthdate" ? row.day : undefined));
  const leaveOut = button(text(desk, "leaveOut"), () => correct(desk, row, "leave out", ""), { "aria-label": `${text(desk, "leaveOut")}: ${text(desk, "line")} ${row.line}` });
  return make("tr", {}, make("th", { scope: "row", class: "number" }, String(row.line)), make("td", {}, leaveOut), ...cells);
}

/** What can be done with one press: exchange the parents, take the proposal, make it unknown, make two animals one. */
function drawPresses(desk: Desk, lines: FindingLines): HTMLElement {
  const [own, other] = lines.rows, field = lines.fields[lines.column] ?? "", idColumn = lines.fields.indexOf("id");
  const presses: HTMLElement[] = [];
  if (lines.exchange && own !== undefined) presses.push(button(text(desk, "exchangeParents"), () => correct(desk, own, "exchange parents", ""), { class: "main" }));
  if (own !== undefined && field !== "" && field !== "id") {
    const isMany = lines.number > 1;
    const label = (words: string) => (isMany ? `${words} ${text(desk, "inLines", lines.number)}` : words);
    if (lines.proposal !== "") presses.push(button(label(text(desk, "takeProposal", lines.proposal)), () => correct(desk, own, field, lines.proposal, isMany), { class: "main" }));
    if (lines.cell !== "") presses.push(button(label(text(desk, "makeUnknown")), () => correct(desk, own, field, "", isMany)));
  }
  const first = own?.cells[idColumn] ?? "", second = other?.cells[idColumn] ?? "";
  if (lines.mayBeOne && own !== undefined && other !== undefined && first !== "" && second !== "" && first !== second) {
    presses.push(button(text(desk, "sameAnimal", first, second), () => correct(desk, own, "same as", second)),
      button(text(desk, "sameAnimal", second, first), () => correct(desk, other, "same as", first)));
  }
  return make("p", { class: "row" }, ...presses);
}

/** The lines of a finding, once the worker has told them. */
export async function drawMending(desk: Desk, place: number): Promise<HTMLElement> {
  const lines = await ask<FindingLines>(desk.client, "findingLines", [place]);
  if (lines.headings === undefined || lines.rows.length === 0) return make("p", { class: "hint" }, text(desk, "noLines"));
  const headings = lines.headings.map((heading) => make("th", { scope: "col" }, nameOf(heading)));
  const idColumn = lines.fields.indexOf("id");
  const refusals = lines.rows.map((row) => drawRefusal(desk, row, row.cells[idColumn] ?? ""));
  return make("div", { class: "mend" }, drawPresses(desk, lines), ...refusals,
    make("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": text(desk, "linesOfFinding") },
      make("table", { class: "plain" }, make("thead", {}, make("tr", {}, make("th", { scope: "col", class: "number" }, text(desk, "line")),
        make("th", { scope: "col" }, text(desk, "wholeLine")), ...headings)), make("tbody", {}, ...lines.rows.map((row, k) => drawLine(desk, lines, row, k === 0))))),
    make("p", { class: "hint" }, text(desk, "mendHint")));
}

/** A cell of the list's text. Quotation marks around one would be taken for those of a spreadsheet. */
function listCell(cell: string): string {
  const plain = cell.replace(/[\t\r\n]/g, " ");
  return plain.startsWith('"') ? `"${plain.replace(/"/g, '""')}"` : plain;
}

function listOf(rows: CorrectionRow[]): string {
  if (rows.length === 0) return "";
  const lines = rows.map(({ id, field, was, becomes, why, when }) => [id, field, was, becomes, why, when].map(listCell).join("\t"));
  return ["id\tfield\twas\tbecomes\twhy\twhen", ...lines, ""].join("\n");
}

function changeRows(desk: Desk, rows: CorrectionRow[]): void {
  change(desk, async () => ({ list: listOf(rows) }));
}

function fieldWords(desk: Desk, field: string): string {
  if (field === "leave out") return text(desk, "leaveOut");
  if (field === "same as") return text(desk, "sameAs");
  return desk.export?.fields.find(({ name }) => name === field)?.description ?? field;
}

function drawCorrection(desk: Desk, rows: CorrectionRow[], place: number): HTMLElement {
  const row = rows[place];
  if (row === undefined) return make("tr");
  const field = fieldWords(desk, row.field), isApplied = row.fate === "applied";
  const input = (name: "becomes" | "why") => {
    const cell = make("input", { type: "text", value: row[name], size: 14, "aria-label": `${text(desk, name)}: ${row.id}, ${field}` });
    cell.addEventListener("change", () => changeRows(desk, rows.map((one, k) => (k === place ? { ...one, [name]: cell.value } : one))));
    return make("td", {}, cell, name === "becomes" ? dayOf(row.becomesDay) : null);
  };
  return make("tr", {}, make("th", { scope: "row" }, nameOf(row.id)), make("td", {}, field), make("td", {}, nameOf(row.was), dayOf(row.wasDay)),
    row.field === "leave out" ? make("td") : input("becomes"), input("why"), make("td", {}, row.when),
    make("td", { class: isApplied ? "" : "severity-W" }, isApplied ? text(desk, "applied") : row.said),
    make("td", {}, button(text(desk, "drop"), () => changeRows(desk, rows.filter((_row, k) => k !== place)), { "aria-label": `${text(desk, "drop")}: ${row.id}, ${field}` })));
}

function drawTable(desk: Desk, rows: CorrectionRow[]): HTMLElement {
  const headings = (["id", "field", "was", "becomes", "why", "when", "state", "drop"] as const).map((name) => make("th", { scope: "col" }, text(desk, name)));
  const table = make("details", { id: "corrections", open: desk.corrections.isShown }, make("summary", {}, text(desk, "listOfCorrections")),
    make("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": text(desk, "listOfCorrections") },
      make("table", { class: "plain" }, make("thead", {}, make("tr", {}, ...headings)), make("tbody", {}, ...rows.map((_row, k) => drawCorrection(desk, rows, k))))));
  table.addEventListener("toggle", () => { desk.corrections.isShown = table.open; });
  return table;
}

/** What is to be changed in the office program, by animal, on paper alone. */
function drawOfficeList(desk: Desk, rows: CorrectionRow[]): HTMLElement {
  const due = rows.filter(({ fate }) => fate === "applied").sort((a, b) => a.id.localeCompare(b.id, desk.language, { numeric: true }));
  const headings = (["id", "field", "was", "becomes", "why"] as const).map((name) => make("th", { scope: "col" }, text(desk, name)));
  const today = new Date().toLocaleDateString(desk.language === "nl" ? "nl-NL" : "en-GB", { dateStyle: "long" });
  return make("div", { id: "office-list" }, make("h2", {}, text(desk, "officeList")), make("p", {}, `${desk.files[0]?.name ?? ""}, ${today}`),
    make("table", { class: "plain" }, make("thead", {}, make("tr", {}, ...headings)), make("tbody", {}, ...due.map((row) => make("tr", {},
      make("th", { scope: "row" }, nameOf(row.id)), make("td", {}, fieldWords(desk, row.field)), make("td", {}, nameOf(row.wasDay ?? row.was)),
      make("td", {}, nameOf(row.becomesDay ?? row.becomes)), make("td", {}, nameOf(row.why)))))));
}

function saveOfficeList(desk: Desk): void {
  const name = `${stemOf(desk.files[0]?.name ?? "export")}_office.xlsx`;
  void work(desk, async () => save(name, await workbookOf(desk, "officeWorkbook"), workbookType));
}

function saveList(list: string, fileName: string): void {
  save(`${stemOf(fileName)}_corrections.tsv`, list, "text/tab-separated-values");
}

/** The list of corrections, with what can be done with all of it. */
export function drawCorrections(desk: Desk): HTMLElement[] {
  const { list, answer, undo, redo } = desk.corrections, rows = answer?.rows ?? [];
  const messages = [...answer?.faults ?? [], ...answer?.messages ?? []].map((message) => make("p", { class: "problem" }, message));
  if (rows.length === 0 && undo.length + redo.length === 0) return messages;
  const keep = () => {
    saveList(list, desk.files[0]?.name ?? "export");
    desk.corrections.isSaved = true;
  };
  const isEmpty = rows.length === 0;
  const row = make("p", { class: "row" }, button(text(desk, "undo"), () => goBack(desk, "undo"), { id: "undo", disabled: undo.length === 0, "aria-keyshortcuts": "Control+Z" }),
    button(text(desk, "redo"), () => goBack(desk, "redo"), { id: "redo", disabled: redo.length === 0, "aria-keyshortcuts": "Control+Y" }),
    button(text(desk, "saveCorrections"), keep, { id: "save-corrections", disabled: isEmpty }),
    button(text(desk, "printOfficeList"), () => printAlone("office-list"), { disabled: isEmpty }),
    button(text(desk, "saveOfficeList"), () => saveOfficeList(desk), { disabled: isEmpty }));
  return [...messages, make("p", { class: "note", id: "corrections-sentence", role: "status" }, isEmpty ? text(desk, "noCorrections") : answer?.sentence), row,
    ...(isEmpty ? [] : [drawTable(desk, rows), drawOfficeList(desk, rows)])];
}

/** Corrections of a file that was open before, as long as they have not been saved. */
export function drawFormer(desk: Desk): HTMLElement[] {
  const { former } = desk.corrections;
  if (former === undefined) return [];
  const done = (action: () => void) => () => {
    desk.corrections.former = undefined;
    action();
    desk.draw();
  };
  return [make("div", { class: "question", id: "former-corrections" }, make("p", {}, text(desk, "formerCorrections", former.name)), make("p", { class: "row" },
    button(text(desk, "saveCorrections"), done(() => saveList(former.list, former.name))),
    desk.export === undefined ? null : button(text(desk, "useHere"), done(() => addList(desk, former.list))),
    button(text(desk, "drop"), done(() => undefined))))];
}

/** A note at the head of results that are not those of the export as it stands. */
export function drawCorrectionsNote(desk: Desk): HTMLElement[] {
  const count = desk.run?.corrections ?? 0;
  return count === 0 ? [] : [make("p", { class: "question", id: "contains-corrections" }, text(desk, "containsCorrections", shownNumber(count, desk.language)))];
}

/** Ctrl+Z and Ctrl+Y, where no field is being typed in. */
export function listenForUndo(desk: Desk): void {
  document.addEventListener("keydown", (event) => {
    const isTyping = event.target instanceof HTMLInputElement || event.target instanceof HTMLTextAreaElement;
    if ((desk.step !== "check" && desk.step !== "data") || !(event.ctrlKey || event.metaKey) || isTyping) return;
    const key = event.key.toLowerCase(), isRedo = key === "y" || (key === "z" && event.shiftKey);
    if (key !== "z" && !isRedo) return;
    event.preventDefault();
    goBack(desk, isRedo ? "redo" : "undo");
  });
}
