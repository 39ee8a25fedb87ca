// Answers about an earlier export, as `prepare` and the desk keep them: NAME.answers, one option a line.

/** The settings that the lines say; lines that are no option about an export are passed over. */
export function settingsOfAnswers(text: string): [string, string][] {
  const settings = new Map<string, string>();
  const add = (name: string, value: string) => settings.set(name, `${settings.get(name) ?? ""}${value}\t`);
  for (const line of text.split(/\r?\n/)) {
    const found = /^--([a-z]+) +(.*\S)\s*$/.exec(line);
    if (found === null) continue;
    const [, option = "", value = ""] = found;
    const column = /^([a-z]+)=(.*)$/.exec(value);
    if (option === "column" && column !== null) settings.set(`column.${column[1] ?? ""}`, column[2] ?? "");
    else if (option === "dates" && value.startsWith("serial-")) settings.set("serials", value);
    else if (["male", "female", "unknown"].includes(option)) add(option, value);
    else if (["encoding", "delimiter", "header", "dates", "century", "ids", "young", "known", "subpopulations", "colours", "species", "name"].includes(option)) {
      settings.set(option, value);
    }
  }
  return [...settings];
}
