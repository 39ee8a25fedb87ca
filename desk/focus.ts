// The focus stays where it was when a part of the page is drawn anew: on the same element, on the one that says the same,
// or on the one that has come into its place.

const focusable = "a[href], button, input, select, textarea, summary, [tabindex='0']";

/** Where an element stood: its name, what it says, how many before it say the same, and its place among all. */
interface Place { id: string; tag: string; label: string; among: number; order: number; selection?: readonly [number, number]; }

/** That of an element in whose place nothing has come yet, because the part is empty for as long as something is being done. */
let lost: Place | undefined;

const listOf = (part: Element) => [...part.querySelectorAll<HTMLElement>(focusable)].filter((element) => !element.matches(":disabled, [hidden]"));

function labelOf(element: HTMLElement): string {
  const named = element.getAttribute("aria-label");
  if (named !== null) return named;
  const isField = element instanceof HTMLInputElement || element instanceof HTMLSelectElement || element instanceof HTMLTextAreaElement;
  return (isField ? element.labels?.[0]?.textContent : element.textContent) ?? "";
}

const isAlike = (one: HTMLElement, tag: string, label: string) => one.tagName === tag && labelOf(one) === label;

function placeOf(part: Element, element: HTMLElement): Place {
  const list = listOf(part), order = list.indexOf(element), label = labelOf(element), tag = element.tagName;
  const among = list.slice(0, Math.max(0, order)).filter((one) => isAlike(one, tag, label)).length;
  const isText = (element instanceof HTMLInputElement && /^(text|search)$/.test(element.type)) || element instanceof HTMLTextAreaElement;
  const selection = isText ? { selection: [element.selectionStart ?? 0, element.selectionEnd ?? 0] as const } : {};
  return { id: element.id, tag, label, among, order, ...selection };
}

function find(part: Element, place: Place): HTMLElement | undefined {
  const list = listOf(part), alike = list.filter((one) => isAlike(one, place.tag, place.label));
  return list.find((one) => place.id !== "" && one.id === place.id) ?? alike[Math.min(place.among, alike.length - 1)] ?? list[Math.min(Math.max(0, place.order), list.length - 1)];
}

function isLost(): boolean {
  const active = document.activeElement;
  return active === null || active === document.body || active.matches(":disabled");
}

/** Draws a part of the page anew, or what stands in it. */
export function keepFocus(part: Element, draw: () => void): void {
  const active = document.activeElement;
  const isWithin = active instanceof HTMLElement && part.contains(active) && active !== part;
  const place = isWithin ? placeOf(part, active) : isLost() ? lost : undefined;
  draw();
  lost = undefined;
  if (place === undefined || !isLost()) return;
  const element = find(part, place);
  if (element === undefined) {
    lost = place;
    return;
  }
  element.focus({ preventScroll: true });
  if (place.selection !== undefined && (element instanceof HTMLInputElement || element instanceof HTMLTextAreaElement) && element.tagName === place.tag) {
    const [from, to] = place.selection;
    if (element.value.length >= to) element.setSelectionRange(from, to);
  }
}
