// The third step: the findings by kind, and a window of their list with the lines as they stand in the file.

import { animalButton } from "./card";
import { ask } from "./client";
import { bytesOf, text, work } from "./desk";
import type { Desk } from "./desk";
import { afterPause, button, make, nameOf, save, shownNumber } from "./dom";
import type { CheckAnswer, FindingRow } from "./protocol";

const rowsShown = 50;

function drawKinds(desk: Desk, answer: CheckAnswer, choose: (kind: string) => void): HTMLElement {
  const rows = answer.kinds.map(({ name, title, severity, severityText, parts, advice, count }) => make("tr", {},
    make("th", { scope: "row" }, title, advice === "" ? null : make("small", {}, advice)), make("td", { class: "number" }, shownNumber(count, desk.language)),
    make("td", { class: `severity-${severity}` }, severityText), make("td", {}, parts),
    make("td", {}, button(text(desk, "show"), () => choose(name), { "aria-label": `${text(desk, "show")}: ${title}`, "aria-pressed": String(desk.kind === name) }))));
  const heading = (name: Parameters<typeof text>[1]) => make("th", { scope: "col", class: name === "count" ? "number" : "" }, text(desk, name));
  return make("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": text(desk, "check") },
    make("table", { class: "plain" }, make("thead", {}, make("tr", {}, heading("kind"), heading("count"), heading("weight"),
      heading("wrongFigures"), heading("show"))), make("tbody", {}, ...rows)));
}

function drawRow(desk: Desk, row: FindingRow): HTMLElement {
  const canPress = row.id !== "" && desk.check?.canRun === true;
  return make("tr", {}, make("td", { class: "number" }, row.line > 0 ? String(row.line) : "–"),
    make("td", {}, canPress ? animalButton({ id: row.id }) : nameOf(row.id)), make("td", { class: `severity-${row.severity}` }, row.kind),
    make("td", {}, make("div", {}, nameOf(row.text)), make("div", { class: "original" }, row.original)));
}

/** The list below the kinds: one window of it, asked of the worker each time. */
function createList(desk: Desk): { element: HTMLElement; show: () => void } {
  const body = make("tbody"), place = make("span", { role: "status", id: "findings-place" });
  const heading = (name: Parameters<typeof text>[1]) => make("th", { scope: "col" }, text(desk, name));
  const move = (by: number) => {
    desk.firstFinding = Math.max(0, desk.firstFinding + by);
    show();
  };
  const before = button(text(desk, "before"), () => move(-rowsShown)), after = button(text(desk, "after"), () => move(rowsShown));
  let newest = 0;
  const list = async () => {
    const mine = ++newest;
    const { count } = await ask<{ count: number }>(desk.client, "chooseFindings", [desk.kind, desk.filter]);
    if (desk.firstFinding >= count) desk.firstFinding = Math.max(0, Math.ceil(count / rowsShown) - 1) * rowsShown;
    const { rows } = await ask<{ rows: FindingRow[] }>(desk.client, "listFindings", [desk.firstFinding, rowsShown]);
    if (mine !== newest) return;
    body.replaceChildren(...rows.map((row) => drawRow(desk, row)));
    const shown = (value: number) => shownNumber(value, desk.language);
    place.textContent = text(desk, "showing", shown(Math.min(desk.firstFinding + 1, count)),
      shown(Math.min(desk.firstFinding + rowsShown, count)), shown(count));
    before.disabled = desk.firstFinding === 0;
    after.disabled = desk.firstFinding + rowsShown >= count;
  };
  const show = () => void list().catch(() => undefined);
  const element = make("div", {}, make("p", { class: "row" }, before, after, place),
    make("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": text(desk, "finding") },
      make("table", { class: "plain", id: "findings" }, make("thead", {}, make("tr", {}, heading("line"), heading("animal"), heading("kind"),
        heading("finding"))), body)));
  return { element, show };
}

function drawFilter(desk: Desk, show: () => void): HTMLElement {
  const input = make("input", { type: "search", id: "filter", size: 30 });
  input.value = desk.filter;
  const showSoon = afterPause(250, show);
  input.addEventListener("input", () => {
    desk.filter = input.value;
    desk.firstFinding = 0;
    showSoon();
  });
  return make("p", { class: "row" }, make("label", { for: "filter" }, text(desk, "filter")), input);
}

export function drawCheck(desk: Desk, goOn: () => void): HTMLElement[] {
  const answer = desk.check;
  if (answer === undefined) return [];
  if (answer.messages.length > 0) return answer.messages.map((message) => make("p", { class: "problem" }, message));
  const shown = (value: number) => shownNumber(value, desk.language);
  const isHarmless = answer.kinds.every(({ severity }) => severity === "L");  // nothing above "worth a look"
  const parts: HTMLElement[] = [make("p", { class: !answer.canRun ? "problem" : isHarmless ? "done" : "question" },
    text(desk, "checkedAnimals", shown(answer.animals), shown(answer.count)), answer.canRun ? "" : ` ${text(desk, "cannotRun")}`)];
  if (answer.count === 0) parts.push(make("p", {}, text(desk, "nothingFound")));
  else {
    const list = createList(desk);
    const choose = (kind: string) => {
      desk.kind = kind;
      desk.firstFinding = 0;
      desk.draw();
    };
    const saveTable = () => void work(desk, async () => save("findings.tsv", await bytesOf(desk, "findings"), "text/tab-separated-values"));
    parts.push(drawKinds(desk, answer, choose),
      make("p", { class: "row" }, button(text(desk, "showAll"), () => choose(""), { "aria-pressed": String(desk.kind === "") }),
        button(text(desk, "saveFindings"), saveTable)),
      drawFilter(desk, list.show), make("p", { class: "hint" }, answer.isFromExport ? text(desk, "ofExport") : ""), list.element);
    list.show();
  }
  parts.push(make("p", { class: "row" },
    button(text(desk, "next", text(desk, "results")), goOn, { class: "main", disabled: !answer.canRun })));
  return parts;
}
