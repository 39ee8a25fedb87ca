// The fifth step: the offspring of a pair, all males of some years for one female, several females against several males,
// the animals that are left out, and a plan for all.

import { ask } from "./client";
import { bytesOf, text, work } from "./desk";
import type { Desk } from "./desk";
import { button, chooser, decimal, make, nameOf, percentage, save, shownNumber } from "./dom";
import { drawYearFields, proposedYears, wordsOfAges } from "./birth_years";
import { animalButton } from "./card";
import { changeLeftOut, drawLeftOut, drawLeftOutNote, withAnimal } from "./left_out";
import { drawForecast } from "./forecast_part";
import { drawMates } from "./mates_part";
import { drawCorrectionsNote } from "./mend_part";
import { drawPlan } from "./plan_part";
import { describe, drawSearch, goneMark, goneWords } from "./search";
import { createPaper, mostPrinted } from "./paper";
import type { PrintedRows } from "./paper";
import type { Animal, MaleRow, PairAnswer } from "./protocol";

const rowsShown = 50, maleColumns = 9;

/** A search for one of the pair, and who has been chosen. */
function drawChoice(desk: Desk, role: "female" | "male", chosen: (animal: Animal) => void): HTMLElement {
  const animal = desk[role];
  return make("div", {}, drawSearch(desk, { id: `search-${role}`, sex: role === "male" ? 1 : 2, take: chosen,
    label: [make("strong", {}, text(desk, role)), document.createTextNode(` – ${text(desk, "typeId")}`)] }),
    animal === undefined ? null : make("p", { id: `chosen-${role}` }, text(desk, "chosen"), describe(desk, animal), " ", animalButton(animal)));
}

async function describePair(desk: Desk): Promise<void> {
  if (desk.female === undefined || desk.male === undefined) return;
  desk.pair = await ask<PairAnswer>(desk.client, "pair", [desk.male.position, desk.female.position]);
}

function drawPair(desk: Desk, pair: PairAnswer): HTMLElement {
  const rows = pair.ancestors.map((ancestor) => make("tr", {}, make("td", {}, animalButton(ancestor)), make("td", {}, nameOf(ancestor.name)),
    make("td", { class: "number" }, ancestor.year === 0 ? "–" : String(ancestor.year)),
    make("td", { class: "number" }, percentage(ancestor.contribution, desk.language))));
  const heading = (name: Parameters<typeof text>[1], isNumber = false) => make("th", { scope: "col", class: isNumber ? "number" : "" }, text(desk, name));
  const kinship = (parent: PairAnswer["sire"]) => make("p", { class: "note" }, animalButton(parent), `: ${text(desk, "meanKinship")}: ${percentage(parent.meanKinship, desk.language)}; ${text(desk, "generationsKnown")}: ${decimal(parent.equivalents, desk.language)}`);
  return make("div", { id: "pair" }, make("p", {}, `${text(desk, "offspringF")}: `, make("span", { class: "figure", id: "offspring-f" }, percentage(pair.offspringF, desk.language))),
    pair.isBeyond === true ? make("p", { class: "problem", id: "beyond" }, text(desk, "pairBeyond", percentage(pair.limit, desk.language, 2))) : null,
    ...[pair.dam, pair.sire].filter(({ gone }) => gone !== undefined)
      .map((parent) => make("p", { class: "question gone-parent" }, text(desk, "isGone", parent.id, goneWords(desk, parent)))),
    kinship(pair.dam), kinship(pair.sire),
    rows.length === 0 ? make("p", {}, text(desk, "noCommon")) : make("table", { class: "plain" }, make("caption", {}, text(desk, "common")),
      make("thead", {}, make("tr", {}, heading("id"), heading("nameOfAnimal"), heading("born", true), heading("contribution", true))),
      make("tbody", {}, ...rows)));
}

async function listMales(desk: Desk, first: number, byKinship: boolean): Promise<void> {
  const { count } = await ask<{ count: number }>(desk.client, "orderMales", [byKinship ? 1 : 0]);
  const { rows } = await ask<{ rows: MaleRow[] }>(desk.client, "listMales", [first, rowsShown]);
  desk.males = { count, first, rows, byKinship };
}

/** Compares the males again where they have been, and keeps to the place at hand. */
async function rankAgain(desk: Desk): Promise<void> {
  const { female, years, males } = desk;
  if (female === undefined || years === undefined || males === undefined) return;
  await ask(desk.client, "rankMales", [female.position, years.first, years.last, desk.takesGone === true ? 1 : 0]);
  await listMales(desk, males.first, males.byKinship);
  if (desk.males?.rows.length === 0 && males.first > 0) await listMales(desk, Math.max(0, males.first - rowsShown), males.byKinship);
}

/** Asks below the row of a male why he is left out. */
function drawLeaving(desk: Desk, row: MaleRow, place: number): HTMLElement {
  const input = make("input", { type: "text", id: "leave-out-why", size: 28, list: "reasons" });
  const again = () => document.getElementById(`leave-out-${place}`) ?? document.getElementById("order");
  const form = make("form", { class: "row leaving" }, make("label", { for: "leave-out-why" }, text(desk, "leaveOutWhy", row.id)), input,
    make("button", { type: "submit", class: "main" }, text(desk, "leaveOut")),
    button(text(desk, "cancel"), () => {
      desk.leavingOut = undefined;
      desk.draw();
      again()?.focus();
    }));
  form.addEventListener("submit", (event) => {
    event.preventDefault();
    desk.leavingOut = undefined;
    void changeLeftOut(desk, withAnimal(desk, row.id, input.value), () => rankAgain(desk)).then(() => again()?.focus());
  });
  return make("tr", { class: "mending" }, make("td", { colspan: maleColumns }, form));
}

function rank(desk: Desk): void {
  const { female, years } = desk;
  if (female === undefined || years === undefined) return;
  void work(desk, async () => {
    if (desk.female !== female) return;  // another one was chosen meanwhile
    desk.leavingOut = undefined;
    await ask(desk.client, "rankMales", [female.position, years.first, years.last, desk.takesGone === true ? 1 : 0]);
    await listMales(desk, 0, desk.males?.byKinship ?? false);
  });
}

/** What is printed of the ranking: from its first male on. */
async function printedMales(desk: Desk, count: number): Promise<PrintedRows> {
  const { rows } = await ask<{ rows: MaleRow[] }>(desk.client, "listMales", [0, mostPrinted]);
  const headings = (["id", "nameOfAnimal", "born", "offspringF", "meanKinship", "generationsKnown", "youngOf", "ageOf"] as const).map((name) => text(desk, name));
  return { headings, count, file: "males.tsv", button: text(desk, "saveMales"),
    rows: rows.map((row) => [nameOf(row.id), make("span", {}, nameOf(row.name === "-" ? "" : row.name), goneMark(desk, row)), row.year === 0 ? "–" : String(row.year),
      `${row.isBeyond ? "▲ " : ""}${percentage(row.offspringF, desk.language)}`, percentage(row.meanKinship, desk.language),
      `${decimal(row.equivalents, desk.language)}${row.isShallow ? " ?" : ""}`, shownNumber(row.offspring, desk.language), row.age === null ? "–" : String(row.age)]) };
}

function drawMales(desk: Desk, males: NonNullable<Desk["males"]>): HTMLElement {
  if (males.count === 0) return make("p", {}, text(desk, "noMales"));
  const shown = (value: number) => shownNumber(value, desk.language);
  const move = (first: number, byKinship = males.byKinship) => {
    desk.leavingOut = undefined;
    void work(desk, () => listMales(desk, Math.max(0, first), byKinship));
  };
  const heading = (name: Parameters<typeof text>[1], isNumber = false) => make("th", { scope: "col", class: isNumber ? "number" : "" }, text(desk, name));
  const leave = (row: MaleRow, place: number) => button(text(desk, "leaveOut"), () => {
    desk.leavingOut = desk.leavingOut === place ? undefined : place;
    desk.draw();
    document.getElementById("leave-out-why")?.focus();
  }, { id: `leave-out-${place}`, "aria-expanded": String(desk.leavingOut === place), "aria-label": `${text(desk, "leaveOut")}: ${row.id}` });
  const apart = make("tr", {}, make("th", { scope: "colgroup", colspan: maleColumns }, text(desk, "shallowMales")));
  const firstShallow = males.rows.find((row) => row.isShallow);
  const rows = males.rows.flatMap((row, place) => [...(row === firstShallow ? [apart] : []), make("tr", {}, make("td", {}, animalButton(row)), make("td", {}, nameOf(row.name === "-" ? "" : row.name), goneMark(desk, row)),
    make("td", { class: "number" }, row.year === 0 ? "–" : String(row.year)),
    make("td", { class: row.isBeyond ? "number beyond" : "number" }, row.isBeyond ? "▲ " : "", percentage(row.offspringF, desk.language)),
    make("td", { class: "number" }, percentage(row.meanKinship, desk.language)), make("td", { class: "number" }, decimal(row.equivalents, desk.language)),
    make("td", { class: "number" }, shown(row.offspring)), make("td", { class: "number" }, row.age === null ? "–" : String(row.age)),
    make("td", {}, leave(row, place))), ...(desk.leavingOut === place ? [drawLeaving(desk, row, place)] : [])]);
  const paper = createPaper(desk, "males-paper", () => printedMales(desk, males.count));
  paper.renew();
  return make("div", { id: "males" }, paper.element,
    make("p", { class: "row" }, make("label", { for: "order" }, text(desk, "orderBy")),
      chooser([{ value: "f", text: text(desk, "offspringF") }, { value: "k", text: text(desk, "meanKinship") }], males.byKinship ? "k" : "f",
        (value) => move(0, value === "k"), { id: "order" }),
      button(text(desk, "saveMales"), () => void work(desk, async () => save("males.tsv", await bytesOf(desk, "males"), "text/tab-separated-values")))),
    make("p", { class: "row" }, button(text(desk, "before"), () => move(males.first - rowsShown), { disabled: males.first === 0 }),
      button(text(desk, "after"), () => move(males.first + rowsShown), { disabled: males.first + rowsShown >= males.count }),
      make("span", { role: "status" }, text(desk, "showing", shown(males.first + 1), shown(Math.min(males.first + rowsShown, males.count)), shown(males.count)))),
    make("div", { class: "scroll window", tabindex: 0, role: "region", "aria-label": text(desk, "allMales") },
      make("table", { class: "plain" }, make("thead", {}, make("tr", {}, heading("id"), heading("nameOfAnimal"), heading("born", true),
        heading("offspringF", true), heading("meanKinship", true), heading("generationsKnown", true), heading("youngOf", true), heading("ageOf", true), heading("leaveOut"))), make("tbody", {}, ...rows))),
    males.rows.some((row) => row.isBeyond) ? make("p", { class: "note" }, text(desk, "beyondLimit")) : null,
    make("p", { class: "hint" }, text(desk, "littleKnown")));
}

/** Whether rankings and plans take animals that have gone. */
function drawTakeGone(desk: Desk): HTMLElement | null {
  if (desk.run?.isAvailabilityTold !== true) return null;
  const box = make("input", { type: "checkbox", id: "take-gone" });
  box.checked = desk.takesGone === true;
  box.addEventListener("change", () => { desk.takesGone = box.checked; });
  return make("label", { for: "take-gone" }, " ", box, " ", text(desk, "takeGone"));
}

/** Where the years come from, and what nobody has said. */
function drawAges(desk: Desk): HTMLElement {
  return make("p", { class: "hint", id: "sire-ages" }, wordsOfAges(desk, true),
    " ", desk.run?.isAvailabilityTold === true ? text(desk, "onlyAvailable", shownNumber(desk.run.available, desk.language)) : text(desk, "nobodySaidAlive"), drawTakeGone(desk),
    desk.run === undefined || desk.run.availableNote === "" ? null : make("strong", { id: "available-note" }, ` ${desk.run.availableNote}`));
}

function drawYears(desk: Desk): HTMLElement {
  const years = desk.years ??= proposedYears(desk, true);
  return make("p", { class: "row" }, ...drawYearFields(desk, years, "first-year", "last-year"),
    button(text(desk, "rank"), () => rank(desk), { class: "main", disabled: desk.female === undefined, id: "rank" }),
    desk.female === undefined ? make("span", { class: "hint" }, text(desk, "chooseFemale")) : null);
}

export function drawBreeding(desk: Desk, compute: () => void): HTMLElement[] {
  if (desk.run === undefined) return [make("p", { class: "row" }, button(text(desk, "compute"), compute, { class: "main" }))];
  if (desk.run.messages.length > 0) return [make("p", { class: "problem" }, desk.run.messages.join("\n"))];
  const take = (role: "female" | "male") => (animal: Animal) => {
    desk[role] = animal;
    void work(desk, () => {
      if (role === "female") desk.males = desk.leavingOut = undefined;
      return describePair(desk);
    }).then(() => document.getElementById(`search-${role}`)?.focus());
  };
  return [...drawCorrectionsNote(desk), make("h2", {}, text(desk, "pairTitle")),
    make("div", { class: "pair" }, drawChoice(desk, "female", take("female")), drawChoice(desk, "male", take("male"))),
    ...(desk.pair === undefined ? [] : [drawPair(desk, desk.pair)]), make("h2", {}, text(desk, "allMales")), drawAges(desk), drawYears(desk),
    ...drawLeftOutNote(desk), ...(desk.males === undefined ? [] : [drawMales(desk, desk.males)]), ...drawMates(desk),
    ...drawLeftOut(desk, () => rankAgain(desk)), ...drawPlan(desk), ...drawForecast(desk)];
}
