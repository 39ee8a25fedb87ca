// The third step: the findings by kind, and a window of their list with the lines as they stand in the file.

import { drawCorrections, drawMending, goOnWithout } from "./mend_part";
import { animalButton } from "./card";
import { ask } from "./client";
import { bytesOf, text, work } from "./desk";
import type { Desk } from "./desk";
import { afterPause, button, make, nameOf, save, shownNumber, turnOver } from "./dom";
import { keepFocus } from "./focus";
import { createPaper, mostPrinted } from "./paper";
import type { PrintedRows } from "./paper";
import { workbookOf, workbookType } from "./workbook";
import type { CheckAnswer, FindingKind, FindingRow } from "./protocol";

const rowsShown = 50;

/** What can be done with a kind of findings: its list, and going on without what is wrong. */
function drawPresses(desk: Desk, answer: CheckAnswer, { name, title, canDropDates, canDropParents }: FindingKind, choose: (kind: string) => void): HTMLElement {
  const without = (what: "dates" | "parents") => {
    const words = text(desk, what === "dates" ? "onWithoutDates" : "onWithoutParents");
    return button(words, () => goOnWithout(desk, name, what), { "aria-label": `${words}: ${title}` });
  };
  return make("span", { class: "ways" },
    button(text(desk, "show"), () => choose(name), { "aria-label": `${text(desk, "show")}: ${title}`, "aria-pressed": String(desk.kind === name) }),
    answer.isFromExport && canDropDates ? without("dates") : null, answer.isFromExport && canDropParents ? without("parents") : null);
}

function drawKinds(desk: Desk, answer: CheckAnswer, choose: (kind: string) => void): HTMLElement {
  const rows = answer.kinds.map((kind) => make("tr", {},
    make("th", { scope: "row" }, kind.title, kind.advice === "" ? null : make("small", {}, kind.advice), drawPresses(desk, answer, kind, choose)),
    make("td", { class: "number" }, shownNumber(kind.count, desk.language)),
    make("td", { class: `severity-${kind.severity}` }, kind.severityText), make("td", {}, kind.parts)));
  const heading = (name: Parameters<typeof text>[1]) => make("th", { scope: "col", class: name === "count" ? "number" : "" }, text(desk, name));
  return make("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": text(desk, "check") },
    make("table", { class: "plain", id: "kinds" }, make("thead", {}, make("tr", {}, heading("kind"), heading("count"), heading("weight"),
      heading("wrongFigures"))), make("tbody", {}, ...rows)));
}

/** Turns a table of lines that is wider than the window to the cell that is meant. */
function showMeant(lines: HTMLElement): void {
  const meant = lines.querySelector(".meant"), box = meant?.closest(".scroll");
  if (meant === null || box === null || box === undefined) return;
  const beyond = meant.getBoundingClientRect().right - box.getBoundingClientRect().right;
  if (beyond > 0) box.scrollLeft += beyond + 16;
}

/** A finding, and below it its lines where they are being mended. */
function drawRow(desk: Desk, row: FindingRow, place: number, show: () => void): HTMLElement[] {
  const isOpen = desk.mending === place, columns = 5;
  const mend = button(text(desk, "mend"), () => {
    desk.mending = isOpen ? undefined : place;
    desk.refusedCell = undefined;
    show();
  }, { id: `mend-${place}`, "aria-expanded": String(isOpen), "aria-label": `${text(desk, "mend")}: ${row.id} ${row.kind}` });
  const details = make("td", { colspan: columns });
  if (isOpen) void drawMending(desk, place).then((lines) => {
    details.replaceChildren(lines);
    showMeant(lines);
    if (desk.refusedCell?.isNew !== true) return;
    desk.refusedCell.isNew = false;
    lines.querySelector<HTMLElement>("[aria-invalid]")?.focus({ preventScroll: true });
  }).catch(() => undefined);
  const canMend = desk.check?.isFromExport === true && row.line > 0;
  return [drawCells(desk, row, canMend ? mend : null), ...(isOpen ? [make("tr", { class: "mending" }, details)] : [])];
}

function drawCells(desk: Desk, row: FindingRow, mend: HTMLElement | null): HTMLElement {
  const canPress = row.id !== "" && desk.check?.canRun === true;
  return make("tr", {}, make("td", { class: "number" }, row.line > 0 ? String(row.line) : "–"), make("td", {}, mend),
    make("td", {}, canPress ? animalButton({ id: row.id }) : nameOf(row.id)), make("td", { class: `severity-${row.severity}` }, row.kind),
    make("td", {}, make("div", {}, nameOf(row.text)), make("div", { class: "original" }, row.original)));
}

/** What is printed of the list: from the first finding on. */
async function printedRows(desk: Desk, count: number): Promise<PrintedRows> {
  const { rows } = await ask<{ rows: FindingRow[] }>(desk.client, "listFindings", [0, mostPrinted]);
  return { count, file: `${stemOfFindings(desk)}.tsv`, button: text(desk, "saveFindings"),
    headings: (["line", "animal", "kind", "finding"] as const).map((name) => text(desk, name)),
    rows: rows.map((row) => [row.line > 0 ? String(row.line) : "–", nameOf(row.id), row.kind,
      make("div", {}, nameOf(row.text), make("div", { class: "original" }, row.original))]) };
}

/** What the names of the files of the findings begin with. */
const stemOfFindings = (desk: Desk) => `${(desk.written?.dataName ?? "findings.txt").replace(/\.[^.]*$/, "")}_check`;

/** The list below the kinds: one window of it, asked of the worker each time. */
function createList(desk: Desk): { element: HTMLElement; show: () => void } {
  const body = make("tbody"), place = make("span", { role: "status", id: "findings-place" });
  const heading = (name: Parameters<typeof text>[1]) => make("th", { scope: "col" }, text(desk, name));
  const move = (by: number) => {
    desk.firstFinding = Math.max(0, desk.firstFinding + by);
    desk.mending = undefined;
    show();
  };
  const showAgain = () => show();
  const before = button(text(desk, "before"), () => move(-rowsShown)), after = button(text(desk, "after"), () => move(rowsShown));
  let newest = 0, chosen = 0;
  const paper = createPaper(desk, "findings-paper", () => printedRows(desk, chosen));
  const list = async () => {
    const mine = ++newest;
    const { count } = await ask<{ count: number }>(desk.client, "chooseFindings", [desk.kind, desk.filter]);
    if (desk.firstFinding >= count) desk.firstFinding = Math.max(0, Math.ceil(count / rowsShown) - 1) * rowsShown;
    const { rows } = await ask<{ rows: FindingRow[] }>(desk.client, "listFindings", [desk.firstFinding, rowsShown]);
    if (mine !== newest) return;
    keepFocus(body, () => body.replaceChildren(...rows.flatMap((row, k) => drawRow(desk, row, desk.firstFinding + k, showAgain))));
    chosen = count;
    paper.renew();
    const shown = (value: number) => shownNumber(value, desk.language);
    place.textContent = text(desk, "showing", shown(Math.min(desk.firstFinding + 1, count)),
      shown(Math.min(desk.firstFinding + rowsShown, count)), shown(count));
    turnOver(before, after, desk.firstFinding === 0, desk.firstFinding + rowsShown >= count);
  };
  const show = () => void list().catch(() => undefined);
  const element = make("div", {}, paper.element, make("p", { class: "row" }, before, after, place),
    make("div", { class: "scroll window", tabindex: 0, role: "region", "aria-label": text(desk, "finding") },
      make("table", { class: "plain", id: "findings" }, make("thead", {}, make("tr", {}, heading("line"), heading("mend"), heading("animal"),
        heading("kind"), heading("finding"))), body)));
  return { element, show };
}

function drawFilter(desk: Desk, show: () => void): HTMLElement {
  const input = make("input", { type: "search", id: "filter", size: 30 });
  input.value = desk.filter;
  const showSoon = afterPause(250, show);
  input.addEventListener("input", () => {
    desk.filter = input.value;
    desk.firstFinding = 0;
    desk.mending = undefined;
    showSoon();
  });
  return make("p", { class: "row" }, make("label", { for: "filter" }, text(desk, "filter")), input);
}

/** What stops the run can be given up in one press: loops. Dates that cannot be read are left out, and do not stop it. */
function drawGoingOn(desk: Desk, answer: CheckAnswer): HTMLElement[] {
  if (!answer.kinds.some(({ severity, canDropParents }) => severity === "S" && canDropParents)) return [];
  return [make("p", {}, text(desk, "goOnHint")), make("p", { class: "row" },
    button(text(desk, "withoutParents"), () => goOnWithout(desk, "", "parents"), { id: "without-parents" }))];
}

export function drawCheck(desk: Desk, goOn: () => void): HTMLElement[] {
  const answer = desk.check;
  if (answer === undefined) return [];
  if (answer.messages.length > 0) return answer.messages.map((message) => make("p", { class: "problem" }, message));
  const shown = (value: number) => shownNumber(value, desk.language);
  const isHarmless = answer.kinds.every(({ severity }) => severity === "L");  // nothing above "worth a look"
  const parts: HTMLElement[] = [make("p", { class: !answer.canRun ? "problem" : isHarmless ? "done" : "question" },
    text(desk, "checkedAnimals", shown(answer.animals), shown(answer.count)), answer.canRun ? "" : ` ${text(desk, "cannotRun")}`)];
  parts.push(...drawCorrections(desk));
  if (!answer.canRun && answer.isFromExport) parts.push(...drawGoingOn(desk, answer));
  if (answer.count === 0) parts.push(make("p", {}, text(desk, "nothingFound")));
  else {
    const list = createList(desk);
    const choose = (kind: string) => {
      desk.kind = kind;
      desk.firstFinding = 0;
      desk.mending = undefined;
      desk.draw();
    };
    const stem = stemOfFindings(desk);
    const saveTable = () => void work(desk, async () => save(`${stem}.tsv`, await bytesOf(desk, "findings"), "text/tab-separated-values"));
    const saveWorkbook = () => void work(desk, async () => save(`${stem}.xlsx`, await workbookOf(desk, "findingsWorkbook"), workbookType));
    parts.push(drawKinds(desk, answer, choose),
      make("p", { class: "row" }, button(text(desk, "showAll"), () => choose(""), { "aria-pressed": String(desk.kind === "") }),
        button(text(desk, "saveFindings"), saveTable), button(text(desk, "saveFindingsWorkbook"), saveWorkbook)),
      drawFilter(desk, list.show), make("p", { class: "hint" }, answer.isFromExport ? text(desk, "ofExport") : ""), list.element);
    list.show();
  }
  parts.push(make("p", { class: "row" },
    button(text(desk, "next", text(desk, "results")), goOn, { class: "main", disabled: !answer.canRun })));
  return parts;
}
