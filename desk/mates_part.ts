// Several females against several males: two lists, filled by the search or with pasted identifications, and the table of
// their offspring's F in colours. On paper the table is cut into pieces of few columns.

import { drawYearFields, proposedYears, wordsOfAges } from "./birth_years";
import type { Years } from "./birth_years";
import { animalButton } from "./card";
import { ask } from "./client";
import { bytesOf, printAlone, text, work } from "./desk";
import type { Desk, DeskMates } from "./desk";
import { button, decimal, make, nameOf, percentage, save, shownNumber } from "./dom";
import { drawSearch, goneMark } from "./search";
import { workbookOf, workbookType } from "./workbook";
import type { Animal, BornAnimals, ListedAnimals, MatesAnswer, TableMate } from "./protocol";
import type { TextName } from "./texts";

type Side = "females" | "males";
const columnsOnPaper = 10;

const isOfSide = (animal: Animal, side: Side) => animal.isMale === (side === "males");

/** Adds animals that are not there yet; what is compared is told anew when it is asked for. */
function addMates(mates: DeskMates, side: Side, animals: Animal[]): void {
  for (const animal of animals) {
    if (!mates[side].some(({ position }) => position === animal.position)) mates[side].push(animal);
  }
}

/** Takes a pasted list; what cannot be taken stays in the field and is named. */
function addListed(desk: Desk, mates: DeskMates, side: Side): void {
  void work(desk, async () => {
    const { animals } = await ask<ListedAnimals>(desk.client, "listed", [mates.pasted[side]]);
    const found = animals.filter((animal): animal is Animal => animal.position > 0);
    addMates(mates, side, found.filter((animal) => isOfSide(animal, side)));
    const wrong = found.filter((animal) => !isOfSide(animal, side)).map(({ id }) => text(desk, side === "males" ? "isFemale" : "isMale", id));
    const unknown = animals.filter(({ position }) => position === 0).map(({ id }) => text(desk, "noSuchAnimal", id));
    mates.notes = [...wrong, ...unknown];
    mates.pasted[side] = animals.filter((animal) => animal.position === 0 || !isOfSide(animal as Animal, side)).map(({ id }) => id).join("\n");
  });
}

/** Adds all that were born in the years at hand, if they are not too many for a table. */
function addBorn(desk: Desk, mates: DeskMates, side: Side): void {
  void work(desk, async () => {
    const isMale = side === "males", { first, last } = yearsOf(desk, mates, side);
    const { animals, count, most } = await ask<BornAnimals>(desk.client, "born", [isMale ? 1 : 2, first, last, desk.takesGone === true ? 1 : 0]);
    mates.notes = count === 0 ? [text(desk, "noneBorn", first, last)] : count > most ? [text(desk, "tooManyBorn", shownNumber(count, desk.language), first, last, most)] : [];
    if (count <= most) addMates(mates, side, animals);
  });
}

function yearsOf(desk: Desk, mates: DeskMates, side: Side): Years {
  return mates.years[side] ??= proposedYears(desk, side === "males");
}

async function compare(desk: Desk, mates: DeskMates): Promise<void> {
  const positions = (side: Side) => mates[side].map(({ position }) => position).join(",");
  const answer = await ask<MatesAnswer>(desk.client, "compareMates", [positions("females"), positions("males")]);
  mates.notes = answer.messages;
  mates.isSaved = false;
  mates.answer = answer.messages.length === 0 ? answer : undefined;
}

function drawSide(desk: Desk, mates: DeskMates, side: Side): HTMLElement {
  const area = make("textarea", { id: `paste-${side}`, rows: 3, cols: 24, spellcheck: "false" });
  area.value = mates.pasted[side];
  area.addEventListener("input", () => { mates.pasted[side] = area.value; });
  const remove = (place: number) => {
    mates[side].splice(place, 1);
    desk.draw();
    (document.getElementById(`remove-${side}-${Math.min(place, mates[side].length - 1)}`) ?? document.getElementById(`search-${side}`))?.focus();
  };
  const chips = mates[side].map((animal, k) => make("li", {}, animalButton(animal), goneMark(desk, animal),
    button("×", () => remove(k), { class: "remove", id: `remove-${side}-${k}`, "aria-label": text(desk, "removeFromList", animal.id) })));
  return make("div", {}, drawSearch(desk, { id: `search-${side}`, sex: side === "males" ? 1 : 2, label: [make("strong", {}, text(desk, side)), document.createTextNode(` – ${text(desk, "typeId")}`)],
    take: (animal) => {
      addMates(mates, side, [animal]);
      desk.draw();
      document.getElementById(`search-${side}`)?.focus();
    } }),
  make("p", { class: "row" }, ...drawYearFields(desk, yearsOf(desk, mates, side), `first-${side}`, `last-${side}`),
    button(text(desk, "addBorn"), () => addBorn(desk, mates, side), { id: `born-${side}` })),
  make("p", { class: "hint" }, wordsOfAges(desk, side === "males")),
  make("ul", { class: "chips", id: `chosen-${side}` }, ...chips),
  make("details", { open: mates.pasted[side] !== "" }, make("summary", {}, text(desk, "pasteList")),
    make("label", { for: `paste-${side}` }, text(desk, "pasteHint")), make("p", { class: "row" }, area,
      button(text(desk, "addListed"), () => addListed(desk, mates, side), { id: `add-${side}` }))));
}

function drawFigure(desk: Desk, answer: MatesAnswer, place: number, beyond: Set<number>): HTMLElement {
  const isBeyond = beyond.has(place);
  return make("td", { class: `number f-${answer.classes[place] ?? 0}${isBeyond ? " above" : ""}` }, isBeyond ? "▲ " : "",
    decimal((answer.f[place] ?? 0) * 100, desk.language, 2));
}

function drawMate(desk: Desk, animal: TableMate): (Node | null)[] {
  return [animalButton(animal), animal.name === "" || animal.name === "-" ? null : make("small", {}, nameOf(animal.name)), goneMark(desk, animal)];
}

/** The columns from `first` on, at most `count`. */
function drawTable(desk: Desk, answer: MatesAnswer, first: number, count: number): HTMLElement {
  const males = answer.males.slice(first, first + count), beyond = new Set(answer.beyond);
  const line = (name: TextName, value: (mate: TableMate) => string) => make("tr", { class: "aside" },
    make("th", { scope: "row", colspan: 2 }, text(desk, name)), ...males.map((male) => make("td", { class: "number" }, value(male))));
  const kinship = (mate: TableMate) => percentage(mate.meanKinship, desk.language);
  const known = (mate: TableMate) => `${decimal(mate.equivalents, desk.language)}${mate.isShallow ? " ?" : ""}`;
  return make("table", { class: "plain mates" }, make("caption", {}, text(desk, "matesCaption")),
    make("thead", {}, make("tr", {}, make("td", { colspan: 2 }), ...males.map((male) => make("th", { scope: "col", class: "number" }, ...drawMate(desk, male)))),
      line("meanKinship", kinship), line("generationsKnown", known)),
    make("tbody", {}, ...answer.females.map((female, row) => make("tr", {}, make("th", { scope: "row" }, ...drawMate(desk, female)),
      make("td", { class: "number aside" }, kinship(female), female.isShallow ? " ?" : ""),
      ...males.map((_male, column) => drawFigure(desk, answer, row * answer.males.length + first + column, beyond))))));
}

/** What each colour means: the classes of F that the charts have too, by the young of known relatives. */
function drawLegend(desk: Desk): HTMLElement {
  const classes: [TextName, number][] = [["noInbreeding", 0], ["upToCousins", 1 / 16], ["upToHalfSibs", 1 / 8], ["upToFullSibs", 1 / 4], ["aboveFullSibs", 1 / 4]];
  return make("ul", { class: "legend", id: "mates-legend" }, ...classes.map(([name, bound], k) => make("li", {}, make("span", { class: `swatch f-${k}` }),
    text(desk, name, percentage(bound, desk.language)))));
}

function drawAnswer(desk: Desk, mates: DeskMates, answer: MatesAnswer): HTMLElement {
  const all = [...answer.females, ...answer.males];
  const left = desk.leftOut.rows.filter(({ animal }) => animal !== undefined && all.some(({ position }) => position === animal.position))
    .map(({ id, why }) => (why === "" ? id : `${id} (${why})`));
  const pieces = Array.from({ length: Math.ceil(answer.males.length / columnsOnPaper) }, (_piece, k) => drawTable(desk, answer, k * columnsOnPaper, columnsOnPaper));
  const keep = (label: TextName, action: () => Promise<void>) => button(text(desk, label), () => void work(desk, async () => {
    await action();
    mates.isSaved = true;
  }));
  return make("div", { id: "mates" },
    left.length === 0 ? null : make("p", { class: "question" }, text(desk, "matesLeftOut", left.join(", "))),
    make("p", { class: "row" }, keep("saveMates", async () => save("mates.tsv", await bytesOf(desk, "mates"), "text/tab-separated-values")),
      keep("saveMatesWorkbook", async () => save("mates.xlsx", await workbookOf(desk, "matesWorkbook"), workbookType)),
      button(text(desk, "print"), () => printAlone("mates"), { id: "print-mates" })),
    drawLegend(desk),
    make("div", { class: "scroll", id: "mates-screen", tabindex: 0, role: "region", "aria-label": text(desk, "matesTitle") }, drawTable(desk, answer, 0, answer.males.length)),
    make("div", { id: "mates-paper" }, ...pieces),
    make("p", { class: "note" }, answer.beyond.length > 0 ? text(desk, "matesBeyond", percentage(answer.limit, desk.language, 2)) : ""),
    make("p", { class: "note" }, all.some(({ isShallow }) => isShallow) ? text(desk, "matesShallow") : ""));
}

export function drawMates(desk: Desk): HTMLElement[] {
  const mates = desk.mates ??= { females: [], males: [], pasted: { females: "", males: "" }, years: {}, notes: [] };
  const isEmpty = mates.females.length === 0 || mates.males.length === 0;
  return [make("h2", {}, text(desk, "matesTitle")), make("p", { class: "hint" }, text(desk, "matesHint")),
    make("div", { class: "pair" }, drawSide(desk, mates, "females"), drawSide(desk, mates, "males")),
    ...mates.notes.map((note) => make("p", { class: "problem", role: "alert" }, note)),
    make("p", { class: "row" }, button(text(desk, "compareMates"), () => void work(desk, () => compare(desk, mates)), { class: "main", id: "compare-mates", disabled: isEmpty })),
    ...(mates.answer === undefined ? [] : [drawAnswer(desk, mates, mates.answer)])];
}
