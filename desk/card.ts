// The card of an animal above whatever is at hand. Each animal on it opens its own; going back in the browser goes back
// to the card before, and from the first one to the page. The address stays as it is.

import { ask } from "./client";
import { bytesOf, ensureRun, showProblem, text, work } from "./desk";
import type { Desk } from "./desk";
import { button, byId, make, nameOf, save } from "./dom";
import type { CardAnswer } from "./protocol";

/** What the history keeps of a card: of which results it is, and how many cards lie below it. */
interface CardState { card: number; results: number; depth: number; }

const stateNow = (): CardState | null => {
  const state = history.state as CardState | null;
  return typeof state?.card === "number" ? state : null;
};

const dialog = () => byId("card") as HTMLDialogElement;

function drawCard(desk: Desk, answer: CardAnswer): void {
  const body = make("div", { class: "pw", id: "card-body" });
  body.innerHTML = answer.html ?? "";  // written by the core, with every text in it escaped
  const file = `${(desk.run?.reportName ?? "animal").replace(/\.[^.]*$/, "")}_${answer.id.replace(/[^A-Za-z0-9.-]/g, "=")}.html`;
  const keep = () => void work(desk, async () => {
    await ask(desk.client, "animal", [answer.position]);
    save(file, await bytesOf(desk, "animalPage"), "text/html");
  });
  dialog().setAttribute("aria-label", text(desk, "cardOf", answer.id));
  dialog().replaceChildren(make("p", { class: "row" },
    button(`← ${text(desk, "back")}`, () => history.back(), { id: "card-back" }),
    button(text(desk, "closeCard"), () => close(), { id: "card-close" }),
    button(text(desk, "print"), () => print(), { id: "card-print" }), button(text(desk, "savePage"), keep, { id: "card-save" })), body);
  copyForPrint(body);
}

/** A dialog has no pages of its own: what is printed is a copy that stands in the page. */
function copyForPrint(body: HTMLElement): void {
  const copy = body.cloneNode(true) as HTMLElement;
  for (const element of [copy, ...copy.querySelectorAll("[id]")]) element.removeAttribute("id");
  byId("printed-card").replaceChildren(copy);
}

/** The focus goes back to where the first card was opened from, also when the page was drawn anew meanwhile. */
function focusAgain(desk: Desk): void {
  const isLost = document.activeElement === null || document.activeElement === document.body;
  if (isLost && desk.cardOpener !== undefined) byId("step").querySelector<HTMLElement>(desk.cardOpener)?.focus();
}

/** Shows the card of the state at hand, or none. */
async function show(desk: Desk): Promise<void> {
  const state = stateNow();
  if (state === null || state.results !== desk.resultsNumber || desk.run === undefined) {
    if (dialog().open) dialog().close();
    document.body.classList.remove("has-card");
    byId("printed-card").replaceChildren();
    return focusAgain(desk);
  }
  const answer = await ask<CardAnswer>(desk.client, "animal", [state.card]);
  if (answer.html === undefined || stateNow()?.card !== state.card) return;
  const isOpen = dialog().open;
  drawCard(desk, answer);
  document.body.classList.add("has-card");
  if (!isOpen) dialog().showModal();
  dialog().scrollTop = 0;
  byId("card-back").focus();
}

/** Leaves all cards: as many steps back as there are. */
function close(): void {
  const state = stateNow();
  if (state !== null) history.go(-state.depth);
}

export function openCard(desk: Desk, position: number): void {
  const depth = dialog().open ? (stateNow()?.depth ?? 0) + 1 : 1;
  const state: CardState = { card: position, results: desk.resultsNumber, depth };
  history.pushState(state, "");
  void show(desk).catch(() => undefined);
}

/** Opens the card of the animal that bears an identification; the results are made before, where that has not been done. */
function openById(desk: Desk, id: string): void {
  let position = 0;
  void work(desk, async () => {
    await ensureRun(desk);
    if (desk.run?.messages.length === 0) position = (await ask<{ position: number }>(desk.client, "position", [id])).position;
  }).then((isDone) => {
    if (position > 0) openCard(desk, position);
    else if (isDone) showProblem(desk.run === undefined || desk.run.messages.length > 0 ? text(desk, "noCardYet") : text(desk, "noSuchAnimal", id));
  });
}

/** An identification that opens the card of its animal. */
export function animalButton(animal: { position?: number; id: string }): HTMLElement {
  const which = animal.position === undefined ? { "data-id": animal.id } : { "data-animal": animal.position };
  return make("button", { type: "button", class: "press", ...which }, nameOf(animal.id));
}

const pressable = "[data-animal],[data-id]";

function open(desk: Desk, element: HTMLElement | SVGElement): void {
  const { animal, id } = element.dataset;
  if (!dialog().open) desk.cardOpener = animal !== undefined ? `[data-animal="${CSS.escape(animal)}"]` : `[data-id="${CSS.escape(id ?? "")}"]`;
  if (animal !== undefined) openCard(desk, Number(animal));
  else openById(desk, id ?? "");
}

export function listenForCards(desk: Desk): void {
  const elementOf = (event: Event) =>
    (event.target instanceof Element ? event.target.closest<HTMLElement | SVGElement>(pressable) : null);
  document.addEventListener("click", (event) => {
    const element = elementOf(event);
    // Who has selected a text of the drawing to copy it does not mean the animal.
    const isCopying = element instanceof SVGElement && String(getSelection() ?? "") !== "";
    if (element !== null && !isCopying) open(desk, element);
  });
  document.addEventListener("keydown", (event) => {
    const element = elementOf(event);
    if (!(element instanceof SVGElement) || (event.key !== "Enter" && event.key !== " ")) return;
    event.preventDefault();
    open(desk, element);
  });
  addEventListener("popstate", () => void show(desk).catch(() => undefined));
  dialog().addEventListener("cancel", (event) => {
    event.preventDefault();
    close();
  });
  // A browser may close it without asking, when Escape is pressed again.
  dialog().addEventListener("close", () => close());
}
