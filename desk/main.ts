// The page itself: its language, the five steps, and what happens when one of them is entered.

import { drawBreeding } from "./breeding_step";
import { listenForCards } from "./card";
import { drawCheck } from "./check_step";
import { filesOfDrop } from "./chosen_files";
import { drawData, takeFiles } from "./data_step";
import { cancel, changeLanguage, createDesk, ensureCheck, ensureRun, hasUnsaved, isReady, showProblem, stepNames, text, work } from "./desk";
import type { Desk, StepName } from "./desk";
import { button, byId, make, shownNumber } from "./dom";
import { keepFocus } from "./focus";
import { helpOf } from "./help";
import { listenForUndo } from "./mend_part";
import { listenForPresses } from "./press";
import { drawResults } from "./results_step";
import { drawSettings } from "./settings_step";
import { textIn } from "./texts";
import type { Language, TextName } from "./texts";

function canEnter(desk: Desk, step: StepName): boolean {
  if (step === "data") return true;
  if (step === "settings") return desk.export !== undefined || desk.given !== undefined;
  if (step === "check") return isReady(desk);
  return isReady(desk) && desk.check?.canRun !== false;
}

/** Does what the step shows, when that has not been done. */
function prepareStep(desk: Desk): void {
  if (desk.step === "check" && desk.check === undefined) void work(desk, () => ensureCheck(desk));
  if ((desk.step === "results" || desk.step === "breeding") && desk.run === undefined) void work(desk, () => ensureRun(desk));
}

/** A step that is pressed while something is being done, as behind a name that has just been typed, follows it. */
function enter(desk: Desk, step: StepName): void {
  if (desk.busy > 0) {
    desk.next = () => enter(desk, step);
    return;
  }
  if (!canEnter(desk, step)) return;
  desk.step = step;
  desk.wasCancelled = false;
  desk.draw();
  prepareStep(desk);
  byId("title").tabIndex = -1;
  byId("title").focus();
  scrollTo(0, 0);
}

const drawers: Record<StepName, (desk: Desk) => HTMLElement[]> = {
  data: (desk) => drawData(desk, () => enter(desk, "settings")),
  settings: (desk) => drawSettings(desk, () => enter(desk, "check")),
  check: (desk) => (desk.check === undefined ? drawAgain(desk) : drawCheck(desk, () => enter(desk, "results"))),
  results: (desk) => drawResults(desk, () => prepareStep(desk)),
  breeding: (desk) => drawBreeding(desk, () => prepareStep(desk)),
};

function drawAgain(desk: Desk): HTMLElement[] {
  return [make("p", { class: "row" }, button(text(desk, "check"), () => prepareStep(desk), { class: "main" }))];
}

function drawFixedTexts(language: Language): void {
  document.documentElement.lang = language;
  for (const element of document.querySelectorAll<HTMLElement>("[data-text]")) {
    element.textContent = textIn(language, element.dataset.text as TextName);
  }
  for (const element of document.querySelectorAll<HTMLElement>("[data-label]")) {
    element.setAttribute("aria-label", textIn(language, element.dataset.label as TextName));
  }
  byId("english").setAttribute("aria-pressed", String(language === "en"));
  byId("dutch").setAttribute("aria-pressed", String(language === "nl"));
}

function drawSteps(desk: Desk): void {
  byId("steps").replaceChildren(...stepNames.map((step, k) => make("li", {},
    button(`${k + 1} ${text(desk, step)}`, () => enter(desk, step), {
      id: `step-${step}`, disabled: !canEnter(desk, step), "aria-current": desk.step === step ? "step" : undefined }))));
}

/** The help of the step at hand, where it is wanted. */
function drawHelp(desk: Desk): void {
  const opener = byId("help-button"), about = text(desk, "helpOn", text(desk, desk.step));
  opener.setAttribute("aria-expanded", String(desk.isHelpShown));
  opener.setAttribute("aria-label", about);
  opener.title = about;
  byId("help").hidden = !desk.isHelpShown;
  byId("help").setAttribute("aria-label", about);
  const entries = desk.isHelpShown ? helpOf(desk.step, desk.language) : [];
  byId("help").replaceChildren(make("dl", {}, ...entries.flatMap(([about, said]) => [make("dt", {}, about), make("dd", {}, said)])),
    button(text(desk, "closeCard"), () => showHelp(desk, false), { id: "help-close" }));
}

function showHelp(desk: Desk, isShown: boolean): void {
  desk.isHelpShown = isShown;
  drawHelp(desk);
  byId("help-button").focus();
}

/** What stands above every printed view: the population, or the file as long as it has no name, and the date. */
function printHead(desk: Desk): string {
  const population = desk.written?.population ?? desk.given?.population ?? desk.files[0]?.name ?? "";
  const isOfResults = desk.step === "results" || desk.step === "breeding", corrections = isOfResults ? desk.run?.corrections ?? 0 : 0;
  const note = corrections === 0 ? "" : `. ${text(desk, "containsCorrections", shownNumber(corrections, desk.language))}`;
  return `${population}, ${new Date().toLocaleDateString(desk.language === "nl" ? "nl-NL" : "en-GB", { dateStyle: "long" })}${note}`;
}

function draw(desk: Desk): void {
  drawFixedTexts(desk.language);
  keepFocus(byId("steps"), () => drawSteps(desk));
  keepFocus(byId("step"), () => {
    byId("title").textContent = text(desk, `${desk.step}Title` as TextName);
    byId("print-head").textContent = printHead(desk);
    drawHelp(desk);
    document.title = `Pedigree Watch – ${text(desk, desk.step)}`;
    const isWaiting = desk.busy > 0 && (desk.step === "check" ? desk.check === undefined : desk.step !== "data" && desk.step !== "settings" && desk.run === undefined);
    const note = desk.wasCancelled ? [make("p", { class: "question", id: "cancelled" }, text(desk, "cancelled"))] : [];
    byId("step").replaceChildren(...note, ...(isWaiting ? [] : drawers[desk.step](desk)));
  });
}

/** No drop is passed over without a word. */
function takeDrop(desk: Desk, event: DragEvent): void {
  const { files, folders } = filesOfDrop(event.dataTransfer);
  if (desk.busy > 0) return showProblem(text(desk, "busyDrop"));
  if (folders.length > 0) return showProblem(text(desk, "isFolder", folders[0] ?? ""));
  if (files.length === 0) return showProblem(text(desk, "noFileDropped"));
  takeFiles(desk, files);
}

function start(): void {
  const desk = createDesk(navigator.language.toLowerCase().startsWith("nl") ? "nl" : "en", draw);
  byId("cancel").addEventListener("click", () => cancel(desk));
  byId("english").addEventListener("click", () => void changeLanguage(desk, "en"));
  byId("dutch").addEventListener("click", () => void changeLanguage(desk, "nl"));
  addEventListener("dragover", (event) => event.preventDefault());
  addEventListener("drop", (event) => {
    event.preventDefault();
    takeDrop(desk, event as DragEvent);
  });
  addEventListener("beforeunload", (event) => {
    if (hasUnsaved(desk)) event.preventDefault();
  });
  byId("help-button").addEventListener("click", () => showHelp(desk, !desk.isHelpShown));
  byId("help").addEventListener("keydown", (event) => {
    if (event.key === "Escape") showHelp(desk, false);
  });
  listenForPresses();
  listenForCards(desk);
  listenForUndo(desk);
  draw(desk);
}

start();
