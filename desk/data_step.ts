// The first step: files are dropped or chosen, and what was recognised is shown.

import { addProblem, applySettings, changeSetting, hasFiles, openAgain, openBesideGiven, openNew, showProblem, text, work } from "./desk";
import type { Desk } from "./desk";
import { textOfFile } from "./chosen_files";
import { ask } from "./client";
import { button, byId, chooser, make, nameOf, shownNumber } from "./dom";
import { gunzip } from "./gunzip";
import { changeLeftOut, drawFormerLeftOut, isListOfLeftOut, readLeftOut } from "./left_out";
import { addList, drawCorrections, drawFormer } from "./mend_part";
import type { ExportAnswer, KeptAnswers, OpenQuestion } from "./protocol";
import type { TextName } from "./texts";

const mostAnswers = 12;

/** Files that were brought together: exports, and answers, the texts of corrections and of animals left out of an earlier one. */
interface Brought { exports: File[]; answers: KeptAnswers[]; corrections: string; leftOut: string; available: File[]; }

const beginningOf = (file: File) => textOfFile(file.slice(0, 200)).catch(() => "");

async function isListOfAnimals(file: File): Promise<boolean> {
  return /_left_out\.(tsv|txt)$/i.test(file.name) || isListOfLeftOut(await beginningOf(file));
}

/** A list of corrections is known by its name, which the desk gives it, or by its first line. */
async function isListOfCorrections(file: File): Promise<boolean> {
  if (/_correct(ions|ies)\.(tsv|txt)$/i.test(file.name)) return true;
  return (await beginningOf(file)).replace(/"/g, "").startsWith("id\tfield\twas\tbecomes");
}

/** The list of animals that are still there, which stands beside a data file: one id a line. */
async function isListOfAvailable(file: File): Promise<boolean> {
  return /_available\.txt$/i.test(file.name) && !/[;,\t|]/.test((await beginningOf(file)).split(/\r?\n|\r/)[0] ?? "");
}

async function readAnswers(desk: Desk, file: File): Promise<KeptAnswers> {
  await ask(desk.client, "language", [desk.language]);
  const answers = await ask<KeptAnswers>(desk.client, "readAnswers", [await textOfFile(file)]);
  if (answers.messages.length > 0) throw new Error(answers.messages.join("\n"));
  return answers;
}

async function sortFiles(desk: Desk, files: File[]): Promise<Brought> {
  const brought: Brought = { exports: [], answers: [], corrections: "", leftOut: "", available: [] };
  for (const file of files) {
    if (/\.answers$/i.test(file.name)) brought.answers.push(await readAnswers(desk, file));
    else if (await isListOfCorrections(file)) brought.corrections += `${await textOfFile(file)}\n`;
    else if (await isListOfAvailable(file)) brought.available.push(file);
    else if (await isListOfAnimals(file)) brought.leftOut += `${await textOfFile(file)}\n`;
    else brought.exports.push(file);
  }
  return brought;
}

/** Says which lines of the answers were passed over, beside what else is said. */
function showUnread(desk: Desk, unread: KeptAnswers["unread"]): void {
  if (unread.length === 0) return;
  const lines = unread.slice(0, mostAnswers).map((one) => text(desk, "answerLine", String(one.line), one.text));
  if (unread.length > mostAnswers) lines.push("...");
  addProblem(`${text(desk, "answersUnread")} ${lines.join("; ")}`);
}

/** Answers and corrections of an earlier export, dropped with the next one or behind it. */
function takeKept(desk: Desk, { exports, answers, corrections, leftOut }: Brought): void {
  const count = exports.length > 0 ? exports.length : desk.given === undefined ? desk.files.length : 0;
  const isPair = exports.some((file) => /\.ini$/i.test(file.name));
  if (answers.length > 1 || count !== 1 || isPair) return showProblem(text(desk, answers.length > 0 ? "answersAlone" : "correctionsAlone"));
  const { settings, unread } = answers[0] ?? { settings: undefined, unread: [] };
  const showThen = () => showUnread(desk, unread);
  if (exports.length > 0) return void openNew(desk, exports, settings, corrections, readLeftOut(leftOut)).then(showThen);
  if (settings !== undefined) void openAgain(desk, settings).then(showThen);
  if (corrections !== "") addList(desk, corrections);
}

/** Animals that are left out belong to whatever is open, or comes with them. */
function takeLeftOut(desk: Desk, leftOut: string): void {
  if (!hasFiles(desk)) return showProblem(text(desk, "leftOutAlone"));
  const rows = readLeftOut(leftOut), others = desk.leftOut.rows.filter(({ id }) => rows.every((row) => row.id !== id));
  void changeLeftOut(desk, [...others, ...rows], () => Promise.resolve());
}

/** The list of animals that are still there comes with a data file and its steer file, or to those that are open. */
function takeAvailable(desk: Desk, { exports, available, leftOut }: Brought, list: File): void {
  const isPair = exports.length === 2 && exports.some((file) => /\.ini$/i.test(file.name));
  if (available.length > 1 || !(isPair || (exports.length === 0 && desk.given !== undefined))) return showProblem(text(desk, "availableAlone", list.name));
  if (isPair) void openNew(desk, [...exports, list], [], "", readLeftOut(leftOut));
  else void openBesideGiven(desk, list);
}

function takeBrought(desk: Desk, brought: Brought): void {
  if (brought.leftOut !== "" && brought.exports.length === 0) {
    takeLeftOut(desk, brought.leftOut);
    if (brought.answers.length === 0 && brought.corrections === "") return;
  }
  if (brought.answers.length > 0 || brought.corrections !== "") return takeKept(desk, brought);
  const [list] = brought.available;
  if (list !== undefined) return takeAvailable(desk, brought, list);
  const files = brought.exports, steerFiles = files.filter((file) => /\.ini$/i.test(file.name));
  if (files.length === 1 && steerFiles.length === 1) return showProblem(text(desk, "steerAlone"));
  if (files.length > 2 || (files.length === 2 && steerFiles.length !== 1)) return showProblem(text(desk, "dropOnly"));
  if (files.length > 0) void openNew(desk, files, [], "", readLeftOut(brought.leftOut));
}

export function takeFiles(desk: Desk, files: File[]): void {
  let brought: Brought | undefined;
  const sort = async () => { brought = await sortFiles(desk, files); };
  if (files.length > 0) void work(desk, sort).then(() => (brought === undefined ? undefined : takeBrought(desk, brought)));
}

function openExample(desk: Desk): void {
  const { language } = desk;
  const [file, name, species] = language === "nl" ? ["heide.txt", "Heideschaap", "schaap"] : ["moorland.txt", "Moorland Sheep", "sheep"];
  let example: File | undefined;
  const unpack = async () => { example = new File([await gunzip(byId(`example-${language}`).textContent ?? "")], file, { type: "text/plain" }); };
  // What is pressed while it is unpacked waits for it, as for any other file.
  void work(desk, unpack).then(() => (example === undefined ? undefined : openNew(desk, [example], [["name", name], ["species", species], ["known", "all"]])));
}

function drawDrop(desk: Desk): HTMLElement {
  // The browser words its own control in its own language, and says "no file" once the page is drawn anew.
  const input = make("input", { type: "file", id: "files", multiple: true, hidden: true });
  input.addEventListener("change", () => takeFiles(desk, [...(input.files ?? [])]));
  const area = make("div", { class: "drop" },
    make("p", { id: "drop-hint" }, `${text(desk, "dropHere")} ${text(desk, "orPair")}`),
    make("p", {}, button(text(desk, "chooseFiles"), () => input.click(), { id: "choose-files", "aria-describedby": "drop-hint" }), input),
    make("p", {}, text(desk, "noFileYet"), button(text(desk, "tryExample"), () => openExample(desk))));
  area.addEventListener("dragover", (event) => {
    event.preventDefault();
    area.classList.add("over");
  });
  area.addEventListener("dragleave", () => area.classList.remove("over"));
  return area;
}

function drawReading(desk: Desk): HTMLElement {
  const field = (name: TextName, key: string, choices: [string, string][]) => {
    const id = `read-${key}`;
    const all = [{ value: "", text: text(desk, "asRecognised") }, ...choices.map(([value, words]) => ({ value, text: words }))];
    return [make("label", { for: id }, text(desk, name)),
      chooser(all, desk.settings.get(key) ?? "", (value) => void changeSetting(desk, key, value), { id })];
  };
  const { sheets = [], sheet = "" } = desk.export ?? {};
  if (sheets.length > 0) {
    if (sheets.length === 1) return make("p", {});
    const choices = sheets.map((name) => ({ value: name, text: name }));
    return make("div", { class: "form" }, make("label", { for: "read-sheet" }, text(desk, "sheet")),
      chooser(choices, sheet, (value) => void changeSetting(desk, "sheet", value), { id: "read-sheet" }));
  }
  return make("details", { open: desk.refusals.length > 0 }, make("summary", {}, text(desk, "howRead")),
    make("div", { class: "form" },
      ...field("letters", "encoding", [
        ["utf-8", "UTF-8"], ["windows-1252", "Windows-1252"], ["utf-16", "UTF-16"], ["windows-1250", "Windows-1250"],
        ["iso-8859-15", "ISO-8859-15"], ["macroman", "MacRoman"], ["cp850", "cp850"], ["cp437", "cp437"],
        ["utf-8-twice", text(desk, "utf8Twice")],
      ]),
      ...field("dividedBy", "delimiter", [["semicolon", text(desk, "semicolon")], ["comma", text(desk, "comma")],
        ["tab", text(desk, "tab")], ["bar", text(desk, "bar")]]),
      ...field("firstLine", "header", [["yes", text(desk, "headerYes")], ["no", text(desk, "headerNo")]])));
}

/** Several columns may tell who has gone. */
const availability = "availability";

/** Gives column `place` another meaning. A field has one column. */
function chooseColumn(desk: Desk, answer: ExportAnswer, place: number, field: string): void {
  const columns = answer.columns.map((name, k) => (k === place ? field : name === field && field !== availability ? "" : name));
  const telling = columns.flatMap((name, k) => (name === availability ? [String(k + 1)] : []));
  if (field === availability || answer.columns[place] === availability) desk.settings.set(availability, telling.length === 0 ? "none" : telling.join(";"));
  for (const { name, isRequired } of answer.fields) {
    if (name === availability) continue;
    const column = columns.indexOf(name);
    if (column >= 0) desk.settings.set(`column.${name}`, String(column + 1));
    else if (isRequired) desk.settings.delete(`column.${name}`);
    else if (answer.columns.includes(name)) desk.settings.set(`column.${name}`, "none");
  }
  void applySettings(desk);
}

function drawFirstLines(desk: Desk, answer: ExportAnswer): HTMLElement {
  const fields = [{ value: "", text: `– ${text(desk, "notUsed")} –` },
    ...answer.fields.map(({ name, description }) => ({ value: name, text: description }))];
  const choosers = answer.headings.map((heading, k) => {
    const label = `${text(desk, "columnHolds", k + 1)} (${heading})`;
    return make("td", {}, chooser(fields, answer.columns[k] ?? "", (field) => chooseColumn(desk, answer, k, field),
      { "aria-label": label }));
  });
  const headings = answer.headings.map((heading, k) =>
    make("th", { scope: "col" }, nameOf(answer.hasHeader ? heading : String(k + 1))));
  const table = make("table", { class: "plain lines" },
    make("thead", {}, make("tr", {}, ...choosers), make("tr", {}, ...headings)),
    make("tbody", {}, ...answer.lines.map((line) => make("tr", {}, ...line.map((field) => make("td", {}, nameOf(field)))))));
  return make("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": text(desk, "firstLines") }, table);
}

function drawEvidence(answer: ExportAnswer): HTMLElement {
  return make("dl", { class: "evidence" },
    ...answer.evidence.flatMap(({ label, text: said }) => [make("dt", {}, label), make("dd", {}, said)]));
}

/** Says the answer to a question; texts that stand for unknown are added to those that do already. */
function answer(desk: Desk, setting: string, value: string): void {
  if (setting === "gone" || setting === "present") return void changeSetting(desk, setting, `${desk.settings.get(setting) ?? ""}${value}\t`);
  if (setting !== "unknown") return void changeSetting(desk, setting, value);
  const before = desk.settings.get("unknown") ?? "";
  const texts = (before.includes("\t") ? before.split("\t") : before.split(",")).map((text) => text.trim()).filter((text) => text !== "");
  void changeSetting(desk, "unknown", `${[...texts, value].join("\t")}\t`);
}

/** A question with a button for each of its answers, if they are few. */
function drawQuestion(desk: Desk, question: OpenQuestion): HTMLElement {
  const answers = question.answers.length > mostAnswers ? [] : question.answers;
  return make("div", { class: "question" }, make("p", {}, question.text),
    answers.length === 0 ? null : make("p", { class: "row" },
      ...answers.map(({ value, text: words, setting }) => button(words, () => answer(desk, setting ?? question.setting, value)))));
}

export function drawQuestions(desk: Desk): HTMLElement[] {
  const questions = desk.export?.questions ?? [];
  const all: HTMLElement[] = desk.refusals.map((words) => make("p", { class: "problem" }, words));
  if (questions.length > 0) {
    all.push(make("p", {}, make("strong", {}, text(desk, desk.step === "data" ? "openQuestionsData" : "openQuestions"))));
    all.push(...questions.map((question) => drawQuestion(desk, question)));
  }
  return all;
}

export function drawData(desk: Desk, goOn: () => void): HTMLElement[] {
  const parts: HTMLElement[] = [drawDrop(desk), ...drawFormer(desk), ...drawFormerLeftOut(desk), ...drawQuestions(desk)];
  if (desk.given !== undefined) {
    if (desk.given.note !== "") parts.push(make("p", { class: "question" }, desk.given.note));
    parts.push(make("p", { class: "done" }, nameOf(desk.given.population), ": ", nameOf(desk.given.dataName)));
  }
  const answer = desk.export;
  if (answer !== undefined) {
    parts.push(make("p", { class: "done" }, nameOf(desk.files[0]?.name ?? ""), ": ", text(desk, "animalsRead", shownNumber(answer.animals, desk.language))),
      ...drawCorrections(desk),
      make("h2", {}, text(desk, "firstLines")), make("p", { class: "hint" }, text(desk, "firstLinesHint")),
      drawFirstLines(desk, answer), make("h2", {}, text(desk, "recognised")), drawEvidence(answer));
  }
  if (desk.files.length > 0 && desk.given === undefined) parts.push(drawReading(desk));
  if (answer !== undefined || desk.given !== undefined) {
    parts.push(make("p", { class: "row" }, button(text(desk, "next", text(desk, "settings")), goOn, { class: "main" })));
  }
  return parts;
}
