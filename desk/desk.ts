// What the page remembers: the files and what their user said of them, the answers of the worker so far, and where in
// the five steps the user is. The steps draw themselves from it.

import { readFiles, Unreadable } from "./chosen_files";
import type { ChosenFile } from "./chosen_files";
import type { AnimalList } from "./animal_list";
import type { Years } from "./birth_years";
import { ask, Cancelled, closeClient, createClient, Failed, stopWork } from "./client";
import type { Client } from "./client";
import { byId, make } from "./dom";
import type { RefusedCell } from "./mend_part";
import { afterPress } from "./press";
import { phaseIn, textIn } from "./texts";
import type { Language, TextName } from "./texts";
import type { Animal, CheckAnswer, CorrectionsAnswer, ExportAnswer, FilesAnswer, GrownAnswer, ListedAnimals, MaleRow, MatesAnswer, Operation, PairAnswer, PlanAnswer, PlanRow, RunAnswer } from "./protocol";

export type StepName = "data" | "settings" | "check" | "results" | "breeding";
export const stepNames: readonly StepName[] = ["data", "settings", "check", "results", "breeding"];

export interface Desk {
  client: Client;
  /** The one in which another file is being opened, while this one keeps what is there. */
  beside?: Client;
  language: Language;
  /** Of the report, unless the settings name one: that of the desk when the results were made. */
  reportLanguage: Language;
  step: StepName;
  isHelpShown: boolean;
  files: ChosenFile[];
  /** What the user says, by the names of src/desk/settings_text.h. */
  settings: Map<string, string>;
  export?: ExportAnswer;
  given?: FilesAnswer;
  /** What stood in the way of opening the files. */
  refusals: string[];
  written?: FilesAnswer;
  check?: CheckAnswer;
  run?: RunAnswer;
  /** These results have been saved whole, as report, page or workbook. */
  isSaved: boolean;
  /** What the board says, as it was typed: the year of its rule, its limits in per cent. */
  board: { ruleYear: string; sireShare: string; mostF: string };
  body?: string;
  /** Counts the results: a card of earlier ones is not shown. */
  resultsNumber: number;
  /** Selects what the first card was opened from. */
  cardOpener?: string;
  report?: string;
  corrections: DeskCorrections;
  /** The place in the list of findings whose lines are shown to be mended. */
  mending?: number;
  refusedCell?: RefusedCell;
  wasCancelled: boolean;
  /** The worker has the files and settings. */
  isOpen: boolean;
  busy: number;
  /** What was pressed while something was being done, and is to follow it. */
  next?: () => void;
  /** Ends with all that was asked for so far: the worker keeps one state, which two actions at once would mix up. */
  working: Promise<unknown>;
  cancellations: number;
  kind: string;
  filter: string;
  firstFinding: number;
  view: "charts" | "text" | "animals";
  animalList?: AnimalList;
  /** Rankings and plans take animals that have gone. */
  takesGone?: boolean;
  female?: Animal;
  male?: Animal;
  pair?: PairAnswer;
  years?: Years;
  males?: { count: number; first: number; rows: MaleRow[]; byKinship: boolean };
  leftOut: DeskLeftOut;
  /** The place in the ranking of the male that is being left out. */
  leavingOut?: number;
  mates?: DeskMates;
  plan?: DeskPlan;
  forecast?: DeskForecast;
  draw: () => void;
  /** Shows whether something is being done. */
  showBusy: () => void;
}

/** The list of corrections as a text, what became of it, and the lists before and behind it. */
export interface DeskCorrections {
  list: string; answer?: CorrectionsAnswer; undo: string[]; redo: string[]; isSaved: boolean; isShown?: boolean;
  /** The list of a file that was open before and has not been saved, and the name of that file. */
  former?: { list: string; name: string };
}

export function newCorrections(list: string): DeskCorrections {
  return { list, undo: [], redo: [], isSaved: true };
}

/** An animal that nobody is to be mated with; `animal` is it in the results at hand, where it is there. */
export interface LeftOutRow { id: string; why: string; when: string; animal?: Animal; }

/** The list of them; `former` is that of a file that was open before and has not been saved. */
export interface DeskLeftOut { rows: LeftOutRow[]; isSaved: boolean; former?: { rows: LeftOutRow[]; name: string }; }

/** Several females against several males: who they are, lists that are being pasted, what came of it. */
export interface DeskMates {
  females: Animal[]; males: Animal[]; pasted: { females: string; males: string }; years: { females?: Years; males?: Years }; notes: string[]; answer?: MatesAnswer;
  /** The answer has been saved. */
  isSaved?: boolean;
}

/** What is asked of a plan, and what came of it; `swapping` is the mating whose male goes to another female. */
export interface DeskPlan {
  fields: Map<string, string>;
  answer?: PlanAnswer; problems: string[];
  first: number; rows: PlanRow[]; swapping?: number;
  /** Its matings have been saved as they are now. */
  isSaved?: boolean;
  /** Other animals are left out since it was made. */
  isOfBefore?: boolean;
}

/** What is asked of a forecast, and the replicates so far; `isWanted`: more of them are to come. `turn` counts how often it
 * was begun, and `height` is that of the one before, in pixels. */
export interface DeskForecast {
  fields: Map<string, string>;
  turn: number; height: number;
  grown?: GrownAnswer; problems: string[]; isWanted: boolean;
  /** The replicates so far have been saved. */
  isSaved?: boolean;
}

/** Something that was made or changed since it was last saved, and would be lost with the page. */
export function hasUnsaved(desk: Desk): boolean {
  const { run, corrections, leftOut, plan, forecast, mates } = desk;
  const hasResults = run !== undefined && run.messages.length === 0 && !desk.isSaved;
  const hasLists = !corrections.isSaved || corrections.former !== undefined || !leftOut.isSaved || leftOut.former !== undefined;
  return hasResults || hasLists || (plan?.answer !== undefined && plan.isSaved !== true) ||
    (forecast?.grown !== undefined && forecast.isSaved !== true) || (mates?.answer !== undefined && mates.isSaved !== true);
}

export function createDesk(language: Language, draw: (desk: Desk) => void): Desk {
  const drawNow = () => draw(desk);
  const showBusyNow = () => {
    byId("busy").hidden = desk.busy === 0;
    byId("work").setAttribute("aria-busy", String(desk.busy > 0));
  };
  const desk: Desk = {
    client: createClient((phase) => showPhase(desk, phase)), language, reportLanguage: language, step: "data", isHelpShown: false, files: [], settings: new Map(), board: { ruleYear: "", sireShare: "", mostF: "" },
    refusals: [], resultsNumber: 0, corrections: newCorrections(""), leftOut: { rows: [], isSaved: true }, wasCancelled: false, isOpen: false, isSaved: false, busy: 0, working: Promise.resolve(), cancellations: 0, kind: "", filter: "", firstFinding: 0, view: "charts",
    draw: () => afterPress(drawNow), showBusy: () => afterPress(showBusyNow),
  };
  return desk;
}

export function text(desk: Desk, name: TextName, ...values: (string | number)[]): string {
  return textIn(desk.language, name, ...values);
}

export function showPhase(desk: Desk, phase: string): void {
  byId("phase").textContent = phaseIn(desk.language, phase);
}

let problemAtHand = "";
const showProblemNow = () => byId("problems").replaceChildren(problemAtHand === "" ? "" : make("p", { class: "problem" }, problemAtHand));

export function showProblem(problem: string): void {
  problemAtHand = problem;
  afterPress(showProblemNow);
}

/** Says something beside the problem at hand. */
export const addProblem = (problem: string) => showProblem(`${problemAtHand} ${problem}`.trim());

/** What the names of files that are saved begin with. */
export const stemOf = (fileName: string) => fileName.replace(/\.[^.]*$/, "");

/** Prints one part of the view at hand, which the style sheet knows by this name. */
export function printAlone(name: string): void {
  document.body.classList.add(`prints-${name}`);
  addEventListener("afterprint", () => document.body.classList.remove(`prints-${name}`), { once: true });
  print();
}

export function settingsText(desk: Desk): string {
  const lines = [...desk.settings].map(([name, value]) => `${name}=${value.replace(/[\r\n]+/g, " ")}`);
  if (!desk.settings.has("language")) lines.push(`language=${desk.reportLanguage}`);
  return lines.join("\n");
}

/** Forgets what came of the export as it was read. The place in the list of findings stays. */
export function forgetResults(desk: Desk): void {
  ++desk.resultsNumber;
  desk.written = desk.check = desk.run = desk.body = desk.report = desk.pair = desk.males = undefined;
  desk.female = desk.male = desk.years = desk.plan = desk.forecast = desk.animalList = desk.mates = desk.leavingOut = undefined;
  desk.mending = desk.refusedCell = undefined;
  desk.isSaved = false;
}

/** Forgets what came of the settings, not the settings. */
export function forgetRun(desk: Desk): void {
  forgetResults(desk);
  desk.kind = desk.filter = "";
  desk.firstFinding = 0;
}

/** Begins an action when those before it have ended, unless they were cancelled. */
function afterOthers(desk: Desk, action: () => Promise<void>): Promise<void> {
  const { cancellations } = desk;
  const done = desk.working.then(() => {
    if (cancellations !== desk.cancellations) throw new Cancelled();
    return action();
  });
  desk.working = done.catch(() => undefined);
  return done;
}

export function wordsOfTrouble(desk: Desk, problem: Unreadable): string {
  const names = { folder: "isFolder", tooLarge: "isTooLarge", changed: "hasChanged" } as const;
  return text(desk, names[problem.trouble], problem.fileName);
}

/** Says what went wrong. A worker that failed may have lost its memory: a new one opens the files again. */
function takeFailure(desk: Desk, problem: unknown): void {
  if (problem instanceof Cancelled) {
    desk.wasCancelled = true;
    return;
  }
  if (problem instanceof Unreadable) return showProblem(wordsOfTrouble(desk, problem));
  showProblem(text(desk, "failed", problem instanceof Error ? problem.message : String(problem)));
  if (problem instanceof Failed) startAgain(desk);
}

/** What was pressed meanwhile comes now. */
function takeNext(desk: Desk): void {
  const { next } = desk;
  desk.next = undefined;
  next?.();
}

/** Does something that takes a while: shows that, and what goes wrong. Yields whether it came to its end. */
export async function work(desk: Desk, action: () => Promise<void>): Promise<boolean> {
  showProblem("");
  desk.wasCancelled = false;
  if (desk.busy++ === 0) byId("phase").textContent = "";
  desk.showBusy();
  try {
    await afterOthers(desk, action);
    return true;
  } catch (problem) {
    takeFailure(desk, problem);
    return false;
  } finally {
    --desk.busy;
    desk.showBusy();
    desk.draw();
    if (desk.busy === 0) takeNext(desk);
  }
}

function startAgain(desk: Desk): void {
  stopWork(desk.client);
  desk.isOpen = false;
  forgetRun(desk);
}

export function cancel(desk: Desk): void {
  ++desk.cancellations;
  desk.next = undefined;
  if (desk.beside !== undefined) closeClient(desk.beside);
  else startAgain(desk);
}

type OpenAnswer = ExportAnswer | FilesAnswer;

async function askToOpen(desk: Desk, client: Client, files: ChosenFile[], settings: string): Promise<OpenAnswer> {
  await ask(client, "language", [desk.language]);
  return ask<OpenAnswer>(client, "open", [settings], files);
}

/** Takes what came of opening the files. */
async function takeOpened(desk: Desk, answer: OpenAnswer): Promise<void> {
  desk.export = desk.given = undefined;
  desk.refusals = answer.messages;
  if ("evidence" in answer) desk.export = answer;
  else if ("steerPath" in answer) desk.given = answer;
  if (desk.export && desk.corrections.list !== "") await applyList(desk);
  // Names are ticked by their places in the survey, which is there only now.
  if (desk.export && (desk.settings.has("subpopulations") || desk.settings.has("colours"))) {
    desk.export = await ask<ExportAnswer>(desk.client, "change", [settingsText(desk)]);
  }
  desk.isOpen = true;
}

/** Has the list of corrections applied to the export. */
export async function applyList(desk: Desk): Promise<void> {
  const told = desk.corrections.answer?.faults ?? [];  // of lines that the list has no more
  const read = await ask<CorrectionsAnswer>(desk.client, "corrections", [desk.corrections.list]);
  desk.corrections.answer = { ...read, faults: [...told, ...read.faults] };
  desk.corrections.list = read.list;
  const answer = await ask<ExportAnswer>(desk.client, "change", [settingsText(desk)]);
  desk.refusals = answer.messages;
  desk.export = "evidence" in answer ? answer : undefined;
}

/** Opens the files in the worker, also again in a new one. */
async function openFiles(desk: Desk): Promise<void> {
  await takeOpened(desk, await askToOpen(desk, desk.client, desk.files, settingsText(desk)));
}

function isOpened(answer: OpenAnswer): boolean {
  return "evidence" in answer || "steerPath" in answer;
}

/** Files that are to be opened, with what is said of them. */
interface Opening { files: ChosenFile[]; settings: [string, string][]; corrections: DeskCorrections; leftOut: DeskLeftOut; }

/** Corrections of the file that was open are kept until they are saved, applied again or dropped. */
function keepFormer(desk: Desk, corrections: DeskCorrections): DeskCorrections {
  const { list, isSaved, former } = desk.corrections;
  if (corrections === desk.corrections || list === "" || isSaved) return { ...corrections, former: corrections.former ?? former };
  return { ...corrections, former: { list, name: desk.files[0]?.name ?? "" } };
}

function keepFormerLeftOut(desk: Desk, leftOut: DeskLeftOut): DeskLeftOut {
  const { rows, isSaved, former } = desk.leftOut;
  if (leftOut === desk.leftOut || rows.length === 0 || isSaved) return { ...leftOut, former: leftOut.former ?? former };
  return { ...leftOut, former: { rows, name: desk.files[0]?.name ?? "" } };
}

/** Everything of the files before goes; these take their place. */
function replaceFiles(desk: Desk, { files, settings, corrections, leftOut }: Opening): void {
  desk.corrections = keepFormer(desk, corrections);
  desk.leftOut = keepFormerLeftOut(desk, leftOut);
  desk.files = files;
  desk.settings = new Map(settings);
  desk.reportLanguage = desk.language;
  desk.export = desk.given = undefined;
  desk.refusals = [];
  desk.isOpen = false;
  forgetRun(desk);
}

/** Opens other files beside those that are open, in a worker of their own: what is there goes only when they are. */
async function openBeside(desk: Desk, opening: Opening): Promise<void> {
  const { files, settings } = opening;
  const client = createClient((phase) => showPhase(desk, phase));
  desk.beside = client;
  try {
    const lines = [...settings.map(([name, value]) => `${name}=${value}`), `language=${desk.language}`].join("\n");
    const answer = await askToOpen(desk, client, files, lines);
    const name = files.map((file) => file.name).join(", ");
    if (!isOpened(answer)) return showProblem(text(desk, "notOpened", name, answer.messages.join(" ")));
    const former = desk.client;
    replaceFiles(desk, opening);
    desk.client = client;
    desk.beside = undefined;
    desk.step = "data";
    closeClient(former);
    await takeOpened(desk, answer);
  } finally {
    if (desk.client !== client) closeClient(client);
    desk.beside = undefined;
  }
}

/** Whether a file is open, so that something could be lost. */
export function hasFiles(desk: Desk): boolean {
  return desk.export !== undefined || desk.given !== undefined;
}

async function openChosen(desk: Desk, opening: Opening): Promise<void> {
  if (hasFiles(desk)) return openBeside(desk, opening);
  replaceFiles(desk, opening);
  desk.step = "data";
  return openFiles(desk);
}

export function openNew(desk: Desk, files: File[], settings: [string, string][] = [], list = "", leftOut: LeftOutRow[] = []): Promise<boolean> {
  return work(desk, async () => openChosen(desk, { files: await readFiles(files), settings, corrections: newCorrections(list), leftOut: { rows: leftOut, isSaved: true } }));
}

/** Opens the data file and the steer file that are there once more, with the list of animals that are still there. */
export function openBesideGiven(desk: Desk, list: File): Promise<boolean> {
  return work(desk, async () => openChosen(desk, { files: [...desk.files.slice(0, 2), ...await readFiles([list])], settings: [], corrections: desk.corrections, leftOut: desk.leftOut }));
}

/** Opens the files that are there once more, with other settings. */
export function openAgain(desk: Desk, settings: [string, string][]): Promise<boolean> {
  return work(desk, () => openChosen(desk, { files: desk.files, settings, corrections: desk.corrections, leftOut: desk.leftOut }));
}

/** Says something else about the export. */
export function changeSetting(desk: Desk, name: string, value: string): Promise<boolean> {
  if (value === "") desk.settings.delete(name);
  else desk.settings.set(name, value);
  return applySettings(desk);
}

export function applySettings(desk: Desk): Promise<boolean> {
  forgetRun(desk);
  return work(desk, async () => {
    forgetRun(desk);
    if (!desk.isOpen || desk.export === undefined) return openFiles(desk);
    const answer = await ask<ExportAnswer>(desk.client, "change", [settingsText(desk)]);
    desk.refusals = answer.messages;
    desk.export = "evidence" in answer ? answer : undefined;
    if (desk.corrections.list !== "" && desk.export !== undefined) await applyList(desk);  // other columns, other fates
  });
}

export function isReady(desk: Desk): boolean {
  if (desk.given !== undefined) return true;
  return desk.export !== undefined && desk.export.questions.length === 0 && desk.refusals.length === 0;
}

/** Has the data file and the steer file made, unless they are there. */
export async function ensureFiles(desk: Desk): Promise<void> {
  if (!desk.isOpen) await openFiles(desk);
  if (desk.given !== undefined) desk.written = desk.given;
  if (desk.written !== undefined) return;
  const answer = await ask<FilesAnswer>(desk.client, "write");
  if ("steerPath" in answer) desk.written = answer;
  else throw new Error((answer as { messages: string[] }).messages.join("\n"));
}

export async function ensureCheck(desk: Desk): Promise<void> {
  await ensureFiles(desk);
  desk.check ??= await ask<CheckAnswer>(desk.client, "check");
}

/** Tells the core who is left out; of the animals that the data do not have nothing is known. */
export async function tellLeftOut(desk: Desk): Promise<void> {
  const { rows } = desk.leftOut;
  const { animals } = await ask<ListedAnimals>(desk.client, "listed", [rows.map(({ id }) => id.replace(/[\r\n]/g, " ")).join("\n")]);
  rows.forEach((row, k) => {
    const animal = animals[k];
    row.animal = animal !== undefined && animal.position > 0 ? animal as Animal : undefined;
  });
  await ask(desk.client, "leaveOut", [animals.map(({ position }) => position).filter((position) => position > 0).join(",")]);
}

/** Runs, unless that has been done; the charts come with it. */
export async function ensureRun(desk: Desk): Promise<void> {
  await ensureCheck(desk);
  const isNew = desk.run === undefined;
  desk.run ??= await ask<RunAnswer>(desk.client, "run");
  if (isNew && desk.run.messages.length === 0 && desk.leftOut.rows.length > 0) await tellLeftOut(desk);
  if (desk.run.messages.length > 0 || desk.body !== undefined) return;
  showPhase(desk, "charts");
  const { ruleYear, sireShare, mostF } = desk.board;
  if (ruleYear + sireShare + mostF !== "") await ask(desk.client, "board", [ruleYear.trim(), sireShare.trim(), mostF.trim()]);
  desk.body = await ask<string>(desk.client, "text", ["body"]);
}

export async function bytesOf(desk: Desk, name: string, operation: Operation = "bytes"): Promise<Uint8Array> {
  return ask<Uint8Array>(desk.client, operation, [name]);
}

/** Says again what the worker said. A report that is there keeps its language; one still to be made takes the desk's. */
async function sayAgain(desk: Desk): Promise<void> {
  if (desk.run !== undefined && desk.run.messages.length > 0) desk.run = undefined;
  const keepsReport = desk.run !== undefined;
  if (!keepsReport) desk.reportLanguage = desk.language;
  if (desk.files.length === 0) return;
  if (!desk.isOpen || (desk.export === undefined && desk.given === undefined)) return openFiles(desk);
  await ask(desk.client, "language", [desk.language]);
  if (desk.export !== undefined) {
    await applyList(desk);
    if (!keepsReport) desk.written = undefined;
  }
  if (desk.check === undefined) return;
  desk.check = undefined;
  await ensureCheck(desk);
}

/** Another language, at once for the page, and for what the worker says when it has time. */
export function changeLanguage(desk: Desk, language: Language): Promise<boolean> {
  desk.language = language;
  desk.refusedCell = undefined;  // its words are those of the other language
  desk.draw();
  return work(desk, () => sayAgain(desk));
}
