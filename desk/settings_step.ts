// The second step: what the user says about dates, sexes, parents, species and names; the steer file that comes of it.

import { applySettings, bytesOf, changeSetting, ensureFiles, isReady, text, work } from "./desk";
import type { Desk } from "./desk";
import { button, chooser, make, nameOf, save, shownNumber } from "./dom";
import type { CountedName, ExportAnswer } from "./protocol";
import { drawQuestions } from "./data_step";

const mostTicks = 200;

function drawDates(desk: Desk): HTMLElement {
  const choices = [{ value: "", text: text(desk, "asRecognised") }, { value: "dd-mm-yyyy", text: text(desk, "dayFirst") },
    { value: "mm-dd-yyyy", text: text(desk, "monthFirst") }];
  return chooser(choices, desk.settings.get("dates") ?? "", (value) => void changeSetting(desk, "dates", value), { id: "dates" });
}

/** What the user has said of years of two digits and of numbers of days can be said again. */
function drawOddDates(desk: Desk, answer: ExportAnswer): HTMLElement[] {
  const parts: HTMLElement[] = [];
  const add = (name: "century" | "serials", choices: [string, string][]) => {
    const all = [{ value: "", text: text(desk, "asRecognised") }, ...choices.map(([value, words]) => ({ value, text: words }))];
    const said = desk.settings.get(name) ?? "";
    if (said !== "" && !choices.some(([value]) => value === said)) all.push({ value: said, text: said });
    parts.push(make("label", { for: name }, text(desk, name)), chooser(all, said, (value) => void changeSetting(desk, name, value), { id: name }));
  };
  const last = new Date().getFullYear();
  const hundred = (end: number): [string, string] => [String(end - 99), `${end - 99}-${end}`];
  if (answer.dates.hasShortYears) add("century", [hundred(last), hundred(last - 100)]);
  if (answer.dates.hasSerials) add("serials", [["serial-1900", text(desk, "since1900")], ["serial-1904", text(desk, "since1904")]]);
  return parts;
}

/** Each text of a sex with what it means. Who changes one has said them all. */
function drawSexes(desk: Desk, answer: ExportAnswer): HTMLElement {
  const choices = [{ value: "male", text: text(desk, "sexMale") }, { value: "female", text: text(desk, "sexFemale") }, { value: "unknown", text: text(desk, "sexUnknown") }];
  const choose = (changed: string, meaning: string) => {
    const textsOf = (wanted: string) => answer.sexes.filter((sex) => sex.text !== "" && (sex.text === changed ? meaning : sex.meaning) === wanted)
      .map((sex) => sex.text).join("\t");
    for (const wanted of ["male", "female"]) {
      if (textsOf(wanted) === "") desk.settings.delete(wanted);
      else desk.settings.set(wanted, textsOf(wanted));
    }
    void applySettings(desk);
  };
  const rows = answer.sexes.filter((sex) => sex.text !== "").map((sex, k) => {
    const id = `sex-${k}`;
    return make("span", { class: "pair" }, make("label", { for: id }, text(desk, "counted", sex.text, shownNumber(sex.count, desk.language))), " ",
      chooser(choices, sex.meaning, (meaning) => choose(sex.text, meaning), { id }), " ");
  });
  return make("div", { id: "sexes", role: "group", "aria-label": text(desk, "sexes") }, ...rows);
}

function drawUnknown(desk: Desk, answer: ExportAnswer): HTMLElement {
  const input = make("input", { type: "text", id: "unknown", size: 40, "aria-describedby": "unknown-hint" });
  input.value = (desk.settings.get("unknown") ?? "").split("\t").filter((piece) => piece !== "").join(", ");
  input.addEventListener("change", () => void changeSetting(desk, "unknown", input.value.trim()));
  const found = answer.unknownParents.filter(({ isUnknown }) => isUnknown).slice(0, 20)
    .map((parent) => text(desk, "counted", parent.text === "" ? text(desk, "emptyField") : parent.text, shownNumber(parent.count, desk.language)));
  return make("div", {}, input, make("p", { class: "hint", id: "unknown-hint" }, text(desk, "unknownHint")),
    make("p", { class: "hint" }, text(desk, "takenAsUnknown"), nameOf(found.join(", "))));
}

function drawSpecies(desk: Desk, answer: ExportAnswer): HTMLElement {
  const choices = [{ value: "", text: answer.species === "" ? text(desk, "chooseSpecies") : text(desk, "asRecognised") },
    ...answer.allSpecies.map((name) => ({ value: name, text: name }))];
  const chosen = desk.settings.get("species") ?? "";
  return chooser(choices, answer.allSpecies.includes(chosen) ? chosen : answer.allSpecies.includes(answer.species) && chosen !== "" ? answer.species : "",
    (value) => void changeSetting(desk, "species", value), { id: "species" });
}

function drawLanguage(desk: Desk): HTMLElement {
  return chooser([{ value: "en", text: "English" }, { value: "nl", text: "Nederlands" }],
    desk.settings.get("language") ?? desk.reportLanguage, (value) => void changeSetting(desk, "language", value), { id: "report-language" });
}

function drawName(desk: Desk, answer: ExportAnswer): HTMLElement {
  const input = make("input", { type: "text", id: "population", maxlength: 40, size: 40 });
  input.value = desk.settings.get("name") ?? answer.name;
  input.addEventListener("change", () => void changeSetting(desk, "name", input.value.trim()));
  return input;
}

function drawTicks(desk: Desk, key: "subpopulations" | "colours", names: CountedName[]): HTMLElement | null {
  if (names.length === 0) return null;
  const chosen = new Set(names.filter(({ isListed }) => isListed).map(({ place }) => place));
  const apply = () => {
    const value = chosen.size === 0 ? "none" : names.filter(({ place }) => chosen.has(place)).map(({ place }) => place).join(",");
    void changeSetting(desk, key, value);
  };
  const ticks = names.slice(0, mostTicks).map(({ place, text: name, count }) => {
    const box = make("input", { type: "checkbox", id: `${key}-${place}` });
    box.checked = chosen.has(place);
    box.addEventListener("change", () => {
      if (box.checked) chosen.add(place);
      else chosen.delete(place);
      apply();
    });
    return make("label", {}, box, " ", nameOf(name === "" ? text(desk, "emptyField") : name), ` (${shownNumber(count, desk.language)})`);
  });
  const rest = names.length > mostTicks ? make("p", { class: "hint" }, `… ${shownNumber(names.length - mostTicks, desk.language)}`) : null;
  return make("fieldset", {}, make("legend", {}, text(desk, key)), make("p", { class: "hint" }, text(desk, "ticksHint")),
    make("p", { class: "row" }, button(text(desk, "all"), () => void changeSetting(desk, key, "all")),
      button(text(desk, "none"), () => void changeSetting(desk, key, "none"))),
    make("div", { class: "ticks", tabindex: 0, role: "group", "aria-label": text(desk, key) }, ...ticks, rest));
}

function drawForm(desk: Desk, answer: ExportAnswer): HTMLElement {
  const label = (name: Parameters<typeof text>[1], id: string) => make("label", { for: id }, text(desk, name));
  return make("div", { class: "form" },
    label("name", "population"), drawName(desk, answer), label("species", "species"), drawSpecies(desk, answer),
    label("reportLanguage", "report-language"), drawLanguage(desk), label("dates", "dates"), drawDates(desk),
    ...drawOddDates(desk, answer),
    make("span", {}, text(desk, "sexes")), drawSexes(desk, answer), label("unknownParents", "unknown"), drawUnknown(desk, answer));
}

function drawSteer(desk: Desk, steer: string, dataName: string, available = ""): HTMLElement[] {
  const saveFile = (name: string, path: (files: NonNullable<Desk["written"]>) => string) => void work(desk, async () => {
    await ensureFiles(desk);
    if (desk.written !== undefined) save(name, await bytesOf(desk, path(desk.written), "files"), "text/plain");
  });
  return [make("h2", {}, text(desk, "steerFile")), make("p", { class: "hint" }, text(desk, "steerHint", dataName)),
    make("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": text(desk, "steerFile") }, make("pre", { id: "steer" }, steer)),
    make("p", { class: "row" }, button(text(desk, "saveSteer"), () => saveFile("pedigreewatch.ini", ({ steerPath }) => steerPath)),
      button(text(desk, "saveData"), () => saveFile(dataName, ({ dataPath }) => dataPath)),
      available === "" ? null : button(text(desk, "saveAvailable"), () => saveFile(available, ({ availablePath }) => availablePath), { id: "save-available" }))];
}

/** What was said about the export, to be kept for the next one. */
function drawAnswers(desk: Desk, answers: string, dataName: string): HTMLElement[] {
  const name = dataName.replace(/\.txt$/, ".answers");
  return [make("p", { class: "hint" }, text(desk, "answersHint", name)),
    make("p", { class: "row" }, button(text(desk, "saveAnswers"), () => save(name, new TextEncoder().encode(answers), "text/plain")))];
}

export function drawSettings(desk: Desk, goOn: () => void): HTMLElement[] {
  const parts: (HTMLElement | null)[] = [...drawQuestions(desk)];
  if (desk.given !== undefined) {
    parts.push(make("p", {}, text(desk, "givenSettings")), ...drawSteer(desk, desk.given.steer, desk.given.dataName));
  } else if (desk.export !== undefined) {
    const answer = desk.export;
    parts.push(drawForm(desk, answer), drawTicks(desk, "subpopulations", answer.subpopulations), drawTicks(desk, "colours", answer.colours));
    if (answer.steer !== "") parts.push(...drawSteer(desk, answer.steer, answer.dataName, answer.availableName));
    if (answer.answers !== undefined && answer.steer !== "") parts.push(...drawAnswers(desk, answer.answers, answer.dataName));
  }
  parts.push(make("p", { class: "row" },
    button(text(desk, "next", text(desk, "check")), goOn, { class: "main", disabled: !isReady(desk) })));
  return parts.filter((part): part is HTMLElement => part !== null);
}
