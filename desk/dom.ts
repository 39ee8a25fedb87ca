// Elements of the page. Whatever comes from a file is put into them as text, never as markup.

type Child = Node | string | null | undefined;
type Attributes = Record<string, string | number | boolean | ((event: Event) => void) | undefined>;

export function make<Name extends keyof HTMLElementTagNameMap>(name: Name, attributes: Attributes = {},
                                                              ...children: Child[]): HTMLElementTagNameMap[Name] {
  const element = document.createElement(name);
  for (const [key, value] of Object.entries(attributes)) {
    if (value === undefined || value === false) continue;
    if (typeof value === "function") element.addEventListener(key, value);
    else element.setAttribute(key, value === true ? "" : String(value));
  }
  for (const child of children) if (child !== null && child !== undefined) element.append(child);
  return element;
}

export function byId(id: string): HTMLElement {
  const element = document.getElementById(id);
  if (element === null) throw new Error(`there is no element ${id}`);
  return element;
}

export function button(text: string, whenPressed: () => void, attributes: Attributes = {}): HTMLButtonElement {
  return make("button", { type: "button", click: whenPressed, ...attributes }, text);
}

/** A text from a file: its direction is its own and leaves the words around it alone. */
export function nameOf(text: string): HTMLElement {
  return make("bdi", { class: "name" }, text);
}

/** Allows turning a page back and on, as far as there are some. The focus of one that is not allowed any more goes to the other. */
export function turnOver(before: HTMLButtonElement, after: HTMLButtonElement, isFirst: boolean, isLast: boolean): void {
  const active = document.activeElement;
  before.disabled = isFirst;
  after.disabled = isLast;
  if (active === before && isFirst) after.focus();
  if (active === after && isLast) before.focus();
}

export interface Choice { value: string; text: string; }

export function chooser(choices: Choice[], chosen: string, whenChosen: (value: string) => void,
                        attributes: Attributes = {}): HTMLSelectElement {
  const element = make("select", attributes, ...choices.map(({ value, text }) => make("option", { value }, text)));
  element.value = chosen;
  element.addEventListener("change", () => whenChosen(element.value));
  return element;
}

/** Hands bytes or a text to the browser as a file to be kept. */
export function save(name: string, content: Uint8Array | string, type: string): void {
  const address = URL.createObjectURL(new Blob([content as BlobPart], { type }));
  const link = make("a", { href: address, download: name });
  document.body.append(link);
  link.click();
  link.remove();
  setTimeout(() => URL.revokeObjectURL(address), 60_000);
}

/** Waits until typing has paused. */
export function afterPause(pause: number, action: () => void): () => void {
  let timer: ReturnType<typeof setTimeout> | undefined;
  return () => {
    clearTimeout(timer);
    timer = setTimeout(action, pause);
  };
}

export function shownNumber(value: number, language: string): string {
  return value.toLocaleString(language === "nl" ? "nl-NL" : "en-GB");
}

export function decimal(value: number, language: string, digits = 1): string {
  const places = { minimumFractionDigits: digits, maximumFractionDigits: digits };
  return value.toLocaleString(language === "nl" ? "nl-NL" : "en-GB", places);
}

export function percentage(value: number | null | undefined, language: string, digits = 2): string {
  if (value === null || value === undefined) return "–";
  const places = { minimumFractionDigits: digits, maximumFractionDigits: digits };
  return `${(value * 100).toLocaleString(language === "nl" ? "nl-NL" : "en-GB", places)} %`;
}
