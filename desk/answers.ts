// Answers about an earlier export, as `prepare` and the desk keep them: NAME.answers, one option a line.

export interface Answers {
  settings: [string, string][];
  /** Lines that are no option about an export, or whose value is none that the option takes. */
  unread: { line: number; text: string }[];
}

const anything = /./;
const oneOf = (words: string) => new RegExp(`^(${words})$`, "i");

const rules = "separators|capitals|zeros|look-alikes|marks|prefix|country|check-digit";

/** The options about an export, and what their values look like. */
const options: Record<string, RegExp> = {
  encoding: oneOf("utf-?(8|16([bl]e)?)|(windows-?|cp)?125[02]|ansi|latin-?[19]|iso-?8859-?15?|mac(roman|intosh)?|(cp)?(850|437)"),
  delimiter: /^(.|semicolon|comma|tab|bar|blank)$/i,
  header: oneOf("yes|no|ja|nee"),
  dates: /^(serial-190[04]|(?=.*d)(?=.*m)(?=.*[yj])[dmyj]+([^\w]?[dmyj]+){0,2})$/i,
  century: /^\d{4}$/,
  ids: new RegExp(`^(keep|(${rules})(\\+(${rules}))*)$`),
  column: /^(id|sire|dam|sex|birthdate|name|colour|breeder|subpopulation|import)=./,
  sheet: anything, young: anything, availability: anything, gone: anything, present: anything, male: anything, female: anything, unknown: anything, known: anything,
  subpopulations: anything, colours: anything, species: anything, name: anything,
};
const repeated = ["male", "female", "unknown", "known", "gone", "present"];

/** The settings that the lines say. */
export function readAnswers(text: string): Answers {
  const settings = new Map<string, string>();
  const unread: Answers["unread"] = [];
  text.split(/\r?\n|\r/).forEach((line, place) => {
    const shown = line.trim();
    if (shown === "" || shown.startsWith("#") || shown.startsWith("headings:")) return;
    if (/^--language +(en|nl)$/.test(shown)) return;  // the page has a language of its own
    const [, option = "", value = ""] = /^--([a-z]+) +(.*)$/.exec(shown) ?? [];
    if (options[option]?.test(value) !== true) {
      unread.push({ line: place + 1, text: shown });
      return;
    }
    const equals = value.indexOf("=");
    if (option === "column") settings.set(`column.${value.slice(0, equals)}`, value.slice(equals + 1).trim());
    else if (option === "dates" && value.startsWith("serial-")) settings.set("serials", value);
    else if (option === "header") settings.set(option, /^(yes|ja)$/i.test(value) ? "yes" : "no");
    else if (repeated.includes(option)) settings.set(option, `${settings.get(option) ?? ""}${value}\t`);
    else settings.set(option, value);
  });
  return { settings: [...settings], unread };
}
