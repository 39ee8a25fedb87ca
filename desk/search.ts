// A field in which parts of an identification or a name are typed, and the animals that have them: a combobox with a list
// (WAI-ARIA 1.2). Arrows go through the list, Enter takes an animal, Escape closes the list and then empties the field.

import { ask } from "./client";
import { text } from "./desk";
import type { Desk } from "./desk";
import { afterPause, make, nameOf, percentage, shownNumber } from "./dom";
import type { Animal, FoundAnimals } from "./protocol";

export interface Search { id: string; label: Node[]; sex: 0 | 1 | 2; take: (animal: Animal) => void; }

/** An animal in a line: identification, name, year, F. */
export function describe(desk: Desk, animal: Animal): HTMLElement {
  const year = animal.year === 0 ? "" : `, ${animal.year}`, name = animal.name === "-" ? "" : animal.name;
  return make("span", {}, nameOf(animal.id), name === "" ? "" : " ", nameOf(name),
    `${year}, F ${percentage(animal.f, desk.language, 1)}`, goneMark(desk, animal));
}

/** That an animal is no longer there, and what the export says of it. */
export function goneWords(desk: Desk, { gone }: Animal): string {
  if (gone === undefined) return "";
  return gone === "" ? text(desk, "gone") : text(desk, "goneBy", gone);
}

/** The same behind the animal; nothing of one that is there. */
export function goneMark(desk: Desk, animal: Animal): HTMLElement | null {
  return animal.gone === undefined ? null : make("small", { class: "gone" }, ` ${goneWords(desk, animal)}`);
}

/** The list below a field: what is in it, and which of it is chosen. */
interface Listing { animals: Animal[]; chosen: number; }

export function drawSearch(desk: Desk, search: Search): HTMLElement {
  const listId = `${search.id}-list`;
  const input = make("input", { type: "text", id: search.id, size: 28, autocomplete: "off", spellcheck: "false", role: "combobox",
    "aria-expanded": "false", "aria-controls": listId, "aria-autocomplete": "list", "aria-describedby": `${search.id}-status` });
  const list = make("ul", { class: "found", id: listId, hidden: true, role: "listbox", "aria-label": text(desk, "foundAnimals") });
  const status = make("p", { class: "hint", role: "status", id: `${search.id}-status` });
  const listing: Listing = { animals: [], chosen: -1 };

  const show = (isOpen: boolean) => {
    list.hidden = !isOpen;
    input.setAttribute("aria-expanded", String(isOpen));
    if (!isOpen) choose(-1);
  };
  const choose = (place: number) => {
    listing.chosen = place;
    [...list.children].forEach((option, k) => option.setAttribute("aria-selected", String(k === place)));
    const option = list.children[place];
    if (option === undefined) input.removeAttribute("aria-activedescendant");
    else {
      input.setAttribute("aria-activedescendant", option.id);
      option.scrollIntoView({ block: "nearest" });
    }
  };
  const take = (place: number) => {
    const animal = listing.animals[place];
    if (animal === undefined) return;
    show(false);
    search.take(animal);
  };

  let newest = 0;
  const look = async () => {
    const mine = ++newest;
    const { animals, count } = await ask<FoundAnimals>(desk.client, "find", [input.value, search.sex]);
    if (mine !== newest) return;
    listing.animals = animals;
    list.replaceChildren(...animals.map((animal, k) => make("li", { id: `${listId}-${k}`, role: "option", "aria-selected": "false",
      click: () => take(k) }, describe(desk, animal))));
    show(animals.length > 0);
    const shown = (value: number) => shownNumber(value, desk.language);
    status.textContent = input.value.trim() === "" ? "" : animals.length === 0 ? text(desk, "noneFound")
      : count > animals.length ? text(desk, "firstOfFound", shown(animals.length), shown(count)) : text(desk, "allFound", shown(count));
  };
  const lookSoon = afterPause(120, () => void look().catch(() => undefined));
  const keys: Record<string, () => void> = {
    ArrowDown: () => (list.hidden ? show(listing.animals.length > 0) : choose((listing.chosen + 1) % listing.animals.length)),
    ArrowUp: () => choose(listing.chosen <= 0 ? listing.animals.length - 1 : listing.chosen - 1),
    Enter: () => take(Math.max(0, listing.chosen)),
  };
  input.addEventListener("input", lookSoon);
  input.addEventListener("keydown", (event) => {
    if (event.key === "Escape") {
      if (!list.hidden) show(false);
      else input.value = "";
      event.stopPropagation();
      return event.preventDefault();
    }
    const action = keys[event.key];
    if (action === undefined || listing.animals.length === 0 || (list.hidden && event.key !== "ArrowDown")) return;
    event.preventDefault();
    action();
  });
  // A press on the list does not take the focus out of the field.
  list.addEventListener("mousedown", (event) => event.preventDefault());
  input.addEventListener("blur", () => show(false));
  return make("div", { class: "search" }, make("label", { for: search.id }, ...search.label), make("div", {}, input, list), status);
}
