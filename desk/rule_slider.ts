// A slider beside the field of a common rule. It steps through values that are worth a try, with "no such rule" among
// them; what the field says beside these values stays as it was typed, and the slider says so. While it is held, nothing
// is drawn anew: it would slip away.

import { make } from "./dom";
import { textIn } from "./texts";
import type { Language } from "./texts";

/** The values of the sliders, from left to right, as the field has them; blank is no rule. */
const stops: Readonly<Record<string, readonly string[]>> = {
  "most-litters-a-year": ["1", "2", "3", "4", "5", "6", "8", "10", "12", "15", "20", "25", "30", "40", "50", "75", "100", "150", "200", ""],
  "sires": ["-50%", "-40%", "-30%", "-20%", "-10%", "", "+10%", "+20%", "+30%", "+40%", "+50%", "+75%", "+100%", "+150%", "+200%"],
  "most-f": ["0", "1", "2", "3", "4", "5", "6.25", "8", "10", "12.5", "15", "20", "25", ""],
  "kinship-below": ["", "10", "20", "30", "40", "50", "60", "70", "80", "90"],
  "import-sires": ["", "1", "2", "3", "4", "5", "6", "8", "10", "15", "20"],
  "import-dams": ["", "1", "2", "3", "4", "5", "6", "8", "10", "15", "20"],
};

export const hasSlider = (name: string) => stops[name] !== undefined;

/** What every form of a value is compared by: no sign of per cent but in changes, a decimal point. */
const plain = (name: string, typed: string) => {
  const value = typed.trim().replace(",", ".");
  return name === "sires" ? value.replace(/\s/g, "") : value.replace(/\s*%$/, "");
};

/** The stop of what the field says; where it has none: the nearest, and false. */
export function stopOf(name: string, typed: string): { place: number; isExact: boolean } {
  const list = stops[name] ?? [""], value = plain(name, typed), exact = list.indexOf(value);
  if (exact >= 0) return { place: exact, isExact: true };
  const isChange = (text: string) => /^[+-].*%$/.test(text);
  const number = parseFloat(value), isComparable = !Number.isNaN(number) && (name !== "sires" || isChange(value));
  // A limit that is not set is beyond all others; no change and no imports are 0.
  const without = /^(sires|import-)/.test(name) ? 0 : Infinity;
  const far = (stop: string) => Math.abs((stop === "" ? without : parseFloat(stop)) - number);
  if (!isComparable) return { place: list.indexOf(""), isExact: false };
  return { place: list.reduce((best, stop, k) => (far(stop) < far(list[best] ?? "") ? k : best), list.indexOf("")), isExact: false };
}

const shown = (value: string, language: Language) => (language === "nl" ? value.replace(".", ",") : value);

let isHeld = false;
const waiting = new Set<() => void>();

/** Does something at once, or when the slider that is held has been let go. */
export function whenLetGo(action: () => void): void {
  if (isHeld) waiting.add(action);
  else action();
}

function letGo(): void {
  isHeld = false;
  const actions = [...waiting];
  waiting.clear();
  for (const action of actions) action();
}

function hold(): void {
  isHeld = true;
  for (const ending of ["pointerup", "pointercancel"]) addEventListener(ending, () => setTimeout(letGo), { capture: true, once: true });
}

/** Reads the field, and writes it; `whenMoved` hears of each step. */
export function makeSlider(name: string, label: string, language: Language, field: HTMLInputElement, whenMoved: (value: string) => void): HTMLInputElement {
  const list = stops[name] ?? [""];
  const slider = make("input", { type: "range", id: `slider-${name}`, min: 0, max: list.length - 1, step: 1,
    "aria-label": textIn(language, "forecastSlider", label) });
  const follow = () => {
    const { place, isExact } = stopOf(name, field.value);
    slider.value = String(place);
    slider.classList.toggle("apart", !isExact);
    slider.setAttribute("aria-valuetext", field.value.trim() === "" ? textIn(language, "forecastNoRule") : field.value.trim());
  };
  slider.addEventListener("pointerdown", hold);
  slider.addEventListener("input", () => {
    field.value = shown(list[Number(slider.value)] ?? "", language);
    follow();
    whenMoved(field.value);
  });
  field.addEventListener("input", follow);
  follow();
  return slider;
}
