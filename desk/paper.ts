// Of a long table the screen shows a window; on paper stand all its rows up to a limit. Those are made ready when the
// window has been at rest for a while, for a browser prints what is there.

import { text } from "./desk";
import type { Desk } from "./desk";
import { afterPause, make, shownNumber } from "./dom";

/** So many rows are printed at most: some twenty pages. */
export const mostPrinted = 1000;
const restOfWindow = 400;  // milliseconds

/** The rows that are printed, of how many there are, and the file with all of them with the button that saves it. */
export interface PrintedRows { headings: string[]; rows: (string | Node)[][]; count: number; file: string; button: string; }

export interface Paper { element: HTMLElement; renew: () => void; }

/** An element that is printed in place of the windows (class "window") beside it, once its rows are there. */
export function createPaper(desk: Desk, id: string, list: () => Promise<PrintedRows>): Paper {
  const element = make("div", { class: "paper", id });
  let newest = 0;
  const fill = async () => {
    const mine = ++newest;
    const { headings, rows, count, file, button } = await list();
    if (mine !== newest || !element.isConnected) return;
    const shown = (value: number) => shownNumber(value, desk.language);
    element.replaceChildren(make("table", { class: "plain" }, make("thead", {}, make("tr", {}, ...headings.map((heading) => make("th", { scope: "col" }, heading)))),
      make("tbody", {}, ...rows.map((row) => make("tr", {}, ...row.map((cell) => make("td", {}, cell)))))),
      count > rows.length ? make("p", { class: "note" }, text(desk, "printedFirst", shown(rows.length), shown(count), file, button)) : "");
    element.classList.add("filled");
  };
  const fillSoon = afterPause(restOfWindow, () => void fill().catch(() => undefined));
  const renew = () => {
    ++newest;
    element.classList.remove("filled");
    fillSoon();
  };
  return { element, renew };
}
