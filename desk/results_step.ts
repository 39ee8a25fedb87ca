// The fourth step: the page of the results, the report, and everything to keep. The page is HTML that the core has
// written, with every name in it escaped.

import { drawAnimalList } from "./animal_list";
import { openCard } from "./card";
import { ask } from "./client";
import { bytesOf, showProblem, text, work } from "./desk";
import type { Desk } from "./desk";
import { button, make, save } from "./dom";
import { workbookOf, workbookType } from "./workbook";
import { drawCorrectionsNote } from "./mend_part";
import { drawSearch } from "./search";
import type { TextName } from "./texts";
// The script of the page, which makes its charts readable with mouse and arrow keys.
import { readFigures } from "page-script";

function drawBody(desk: Desk): HTMLElement {
  const element = make("div", { class: "pw", id: "results-body" });
  element.innerHTML = desk.body ?? "";
  queueMicrotask(readFigures);
  return element;
}

/** Columns of the report that fit on a page that is not turned. */
const widestUpright = 110;

async function showReport(desk: Desk, element: HTMLElement): Promise<void> {
  desk.report ??= await ask<string>(desk.client, "text", ["reportText"]);
  // Tables are parted by a line of blanks; on paper none is cut that fits on a page.
  const parts = desk.report.split(/(?<=\n)(?= {4,}\r?\n)/);
  const isWide = (part: string) => part.split("\n").some((line) => line.trimEnd().length > widestUpright);
  element.replaceChildren(...parts.map((part) => make("span", { class: isWide(part) ? "report-part wide" : "report-part" }, part)));
}

function drawReport(desk: Desk): HTMLElement {
  const report = make("pre", { id: "report" });
  void showReport(desk, report).catch(() => undefined);
  return make("div", { class: "scroll report", tabindex: 0, role: "region", "aria-label": text(desk, "reportText") }, report);
}

function drawSaving(desk: Desk): HTMLElement {
  const stem = (desk.run?.reportName ?? "report.out").replace(/\.[^.]*$/, "");
  const kept = (label: TextName, what: string, name: string, type: string, isWhole = false) => button(text(desk, label), () => void work(desk, async () => {
    save(name, await bytesOf(desk, what), type);
    if (isWhole) desk.isSaved = true;
  }));
  const table = "text/tab-separated-values";
  const hasSubpopulations = (desk.export?.subpopulations.filter(({ isListed }) => isListed).length ?? 2) > 1;
  const workbook = button(text(desk, "saveWorkbook"), () => void work(desk, async () => {
    save(`${stem}_tables.xlsx`, await workbookOf(desk, "workbook"), workbookType);
    desk.isSaved = true;
  }), { id: "save-workbook" });
  return make("p", { class: "row" }, workbook,
    kept("saveReport", "report", desk.run?.reportName ?? "report.out", "application/octet-stream", true),
    kept("savePage", "page", `${stem}.html`, "text/html", true), kept("saveYears", "years", `${stem}_years.tsv`, table),
    kept("saveAnimals", "animals", `${stem}_animals.tsv`, table), kept("saveDiversity", "diversity", `${stem}_diversity.tsv`, table),
    kept("saveStanding", "standing", `${stem}_standing.tsv`, table),
    kept("saveCohorts", "cohorts", `${stem}_cohorts.tsv`, table), kept("saveByKinship", "byKinship", `${stem}_by_kinship.tsv`, table),
    kept("saveMostInbred", "mostInbred", `${stem}_most_inbred.tsv`, table),
    kept("saveUsedSires", "usedSires", `${stem}_used_sires.tsv`, table),
    kept("saveFounders", "founders", `${stem}_founders.tsv`, table),
    hasSubpopulations ? kept("saveDivision", "division", `${stem}_division.tsv`, table) : null,
    hasSubpopulations ? kept("saveSubpopulations", "subpopulations", `${stem}_subpopulations.tsv`, table) : null);
}

async function judge(desk: Desk): Promise<void> {
  const { ruleYear, sireShare, mostF } = desk.board;
  const { problem } = await ask<{ problem: string }>(desk.client, "board", [ruleYear.trim(), sireShare.trim(), mostF.trim()]);
  if (problem !== "") {
    showProblem(problem);
    return;
  }
  desk.body = await ask<string>(desk.client, "text", ["body"]);
  desk.isSaved = false;
  desk.draw();
}

/** Fields for what the board says of its breed. */
function drawBoard(desk: Desk): HTMLElement {
  const field = (name: "ruleYear" | "sireShare" | "mostF", hint: string) => {
    const input = make("input", { type: "text", id: `board-${name}`, size: 6, inputmode: "decimal", placeholder: hint });
    input.value = desk.board[name];
    input.addEventListener("change", () => { desk.board[name] = input.value; });
    return make("label", {}, `${text(desk, name)} `, input);
  };
  const form = make("form", { class: "row", "aria-label": text(desk, "board") }, field("ruleYear", "2015"), field("sireShare", "5"),
    field("mostF", "6.25"), make("button", { type: "submit" }, text(desk, "judge")));
  form.addEventListener("submit", (event) => {
    event.preventDefault();
    void work(desk, () => judge(desk));
  });
  return form;
}

export function drawResults(desk: Desk, compute: () => void): HTMLElement[] {
  if (desk.run === undefined) return [make("p", { class: "row" }, button(text(desk, "compute"), compute, { class: "main" }))];
  if (desk.run.messages.length > 0) return [make("p", { class: "problem" }, desk.run.messages.join("\n"))];
  const choose = (view: Desk["view"]) => {
    desk.view = view;
    desk.draw();
  };
  const views = make("div", { class: "row", role: "group", "aria-label": text(desk, "view") },
    button(text(desk, "charts"), () => choose("charts"), { "aria-pressed": String(desk.view === "charts") }),
    button(text(desk, "allAnimals"), () => choose("animals"), { id: "view-animals", "aria-pressed": String(desk.view === "animals") }),
    button(text(desk, "reportText"), () => choose("text"), { "aria-pressed": String(desk.view === "text") }));
  const shown = { charts: drawBody, text: drawReport, animals: drawAnimalList }[desk.view];
  const lookUp = drawSearch(desk, { id: "search-animal", sex: 0, take: ({ position }) => openCard(desk, position),
    label: [make("strong", {}, text(desk, "lookUp")), document.createTextNode(` – ${text(desk, "typeId")}`)] });
  return [...drawCorrectionsNote(desk), lookUp, drawSaving(desk), drawBoard(desk), views, shown(desk)];
}
