// The birth years of animals that mates are looked for among: those that are as old as parents have been, until others are
// typed.

import { text } from "./desk";
import type { Desk } from "./desk";
import { make } from "./dom";

export interface Years { first: number; last: number; }

/** What is known of the ages of parents: the youngest and the oldest, or nothing. */
export const agesOf = (desk: Desk, isMale: boolean): number[] => (isMale ? desk.run?.sireAges : desk.run?.damAges) ?? [];

/** Birth years of those that are as old as parents have been, when the next young are born. */
export function proposedYears(desk: Desk, isMale: boolean): Years {
  const lastYear = desk.run?.lastYear ?? 0, [youngest, oldest] = agesOf(desk, isMale);
  return youngest === undefined || oldest === undefined ? { first: lastYear - 9, last: lastYear } : { first: lastYear + 1 - oldest, last: lastYear + 1 - youngest };
}

/** Where these years come from; empty where the ages of parents are not known. */
export function wordsOfAges(desk: Desk, isMale: boolean): string {
  const lastYear = desk.run?.lastYear ?? 0, [youngest, oldest] = agesOf(desk, isMale), { first, last } = proposedYears(desk, isMale);
  return youngest === undefined || oldest === undefined ? "" : text(desk, isMale ? "sireAges" : "damAges", youngest, oldest, first, last, lastYear + 1);
}

function yearField(desk: Desk, id: string, given: number, set: (year: number) => void): HTMLElement {
  let year = given;
  const input = make("input", { type: "text", id, value: year, size: 5, inputmode: "numeric", "aria-describedby": `${id}-problem` });
  const problem = make("span", { class: "unread", id: `${id}-problem`, role: "status" });
  input.addEventListener("change", () => {
    const typed = input.value.trim(), isYear = /^-?\d{1,4}$/.test(typed);
    problem.textContent = isYear ? "" : text(desk, "noYear", typed, year);
    if (isYear) set(year = Number(typed));
    else input.value = String(year);
  });
  return make("span", {}, input, problem);
}

/** Two fields for the first and the last year, which change `years`. */
export function drawYearFields(desk: Desk, years: Years, firstId: string, lastId: string): HTMLElement[] {
  return [make("label", { for: firstId }, text(desk, "bornFrom")), yearField(desk, firstId, years.first, (year) => { years.first = year; }),
    make("label", { for: lastId }, text(desk, "bornTo")), yearField(desk, lastId, years.last, (year) => { years.last = year; })];
}
