// The fourth step: the page of the results, the report, and everything to keep. The page is HTML that the core has
// written, with every name in it escaped.

import { ask } from "./client";
import { bytesOf, text, work } from "./desk";
import type { Desk } from "./desk";
import { button, make, save } from "./dom";
import type { TextName } from "./texts";
// The script of the page, which makes its charts readable with mouse and arrow keys.
import { readFigures } from "page-script";

function drawBody(desk: Desk): HTMLElement {
  const element = make("div", { class: "pw", id: "results-body" });
  element.innerHTML = desk.body ?? "";
  queueMicrotask(readFigures);
  return element;
}

async function showReport(desk: Desk, element: HTMLElement): Promise<void> {
  desk.report ??= await ask<string>(desk.client, "text", ["reportText"]);
  element.textContent = desk.report;
}

function drawReport(desk: Desk): HTMLElement {
  const report = make("pre", { id: "report" });
  void showReport(desk, report).catch(() => undefined);
  return make("div", { class: "scroll report", tabindex: 0, role: "region", "aria-label": text(desk, "reportText") }, report);
}

function drawSaving(desk: Desk): HTMLElement {
  const stem = (desk.run?.reportName ?? "report.out").replace(/\.[^.]*$/, "");
  const kept = (label: TextName, what: string, name: string, type: string) => button(text(desk, label), () => void work(desk, async () => {
    save(name, await bytesOf(desk, what), type);
  }));
  const table = "text/tab-separated-values";
  const hasSubpopulations = (desk.export?.subpopulations.filter(({ isListed }) => isListed).length ?? 2) > 1;
  return make("p", { class: "row" },
    kept("saveReport", "report", desk.run?.reportName ?? "report.out", "application/octet-stream"),
    kept("savePage", "page", `${stem}.html`, "text/html"), kept("saveYears", "years", `${stem}_years.tsv`, table),
    kept("saveAnimals", "animals", `${stem}_animals.tsv`, table), kept("saveDiversity", "diversity", `${stem}_diversity.tsv`, table),
    hasSubpopulations ? kept("saveSubpopulations", "subpopulations", `${stem}_subpopulations.tsv`, table) : null);
}

export function drawResults(desk: Desk, compute: () => void): HTMLElement[] {
  if (desk.run === undefined) return [make("p", { class: "row" }, button(text(desk, "compute"), compute, { class: "main" }))];
  if (desk.run.messages.length > 0) return [make("p", { class: "problem" }, desk.run.messages.join("\n"))];
  const choose = (view: "charts" | "text") => {
    desk.view = view;
    desk.draw();
  };
  const views = make("div", { class: "row", role: "group", "aria-label": text(desk, "view") },
    button(text(desk, "charts"), () => choose("charts"), { "aria-pressed": String(desk.view === "charts") }),
    button(text(desk, "reportText"), () => choose("text"), { "aria-pressed": String(desk.view === "text") }));
  return [drawSaving(desk), views, desk.view === "charts" ? drawBody(desk) : drawReport(desk)];
}
