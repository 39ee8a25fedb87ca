// Six books of herdbook offices of which the truth is known: what each animal is, how the office writes it down, and what
// went wrong on the way.

/** A herd in which each year's animals have parents of the years before; `litter` young are born at a time. */
export function makeHerd({ first = 2004, years, litters = 8, litter = 1, idOf }) {
  let seed = 20, count = 0;
  const random = (below) => {
    seed = (seed * 1103515245 + 12345) % 2147483648;
    return Math.floor((seed / 2147483648) * below);
  };
  const animals = [];
  for (let year = first; year < first + years; ++year) {
    const old = animals.filter((animal) => animal.year < year - 3 && animal.year > year - 9);
    const sires = old.filter(({ isMale }) => isMale), dams = old.filter(({ isMale }) => !isMale);
    for (let k = 0; k < litters; ++k) {
      const sire = sires[random(Math.min(4, sires.length))], [dam] = dams.splice(random(dams.length), 1);
      const date = { year, month: 1 + random(6), day: 13 + random(15) };
      for (let young = 0; young < litter; ++young, ++count) {
        animals.push({ id: idOf(count, year), name: `Name ${count}`, isMale: count % 2 === 0, year, date, sire: sire?.id ?? "", dam: dam?.id ?? "", litter: `${year}/${k}` });
      }
    }
  }
  return animals;
}

const two = (number) => String(number).padStart(2, "0");
const months = ["Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"];
const dayFirst = ({ year, month, day }) => `${two(day)}-${two(month)}-${year}`;

/** One animal a line. `change` is what the office has wrong: a line's fields, by the animal's place. */
function lines(animals, delimiter, headings, fieldsOf, change = {}) {
  const rows = animals.map((animal, k) => (change[k] ?? ((fields) => fields))(fieldsOf(animal)));
  return [headings, ...rows].map((fields) => fields.join(delimiter)).join("\r\n") + "\r\n";
}

/** A litter a line, as many young as the longest has. */
function litterLines(animals, delimiter, most, headings, shared, own, change = {}) {
  const of = new Map();
  for (const animal of animals) of.set(animal.litter, [...(of.get(animal.litter) ?? []), animal]);
  const rows = [...of.values()].map((young, k) => {
    const cells = Array.from({ length: most }, (_young, place) => (young[place] === undefined ? own({ id: "", isMale: undefined }) : own(young[place])));
    return (change[k] ?? ((fields) => fields))([...shared(young[0]), ...cells.flat()]);
  });
  return [headings, ...rows].map((fields) => fields.join(delimiter)).join("\n") + "\n";
}

const put = (place, text) => (fields) => fields.map((field, k) => (k === place ? text : field));

function sheep(years, isMended) {
  const animals = makeHerd({ years, idOf: (k) => `NL-${10000 + k * 7}` });
  const change = isMended ? {} : { 30: put(3, dayFirst({ ...animals[30].date, year: animals[30].year + 90 })) };
  return { animals, text: lines(animals, ";", ["Stamboeknr.", "Naam", "Geslacht", "Geb. datum", "Stamboeknr. vader", "Stamboeknr. moeder", "Kleur"],
    ({ id, name, isMale, date, sire, dam }) => [id, name, isMale ? "ram" : "ooi", dayFirst(date), sire, dam, "grijs"], change) };
}

function dogs(years, isMended) {
  const animals = makeHerd({ years, litters: 4, litter: 3, idOf: (k) => `VDH/${2000 + k}` });
  // Of the sixth litter the third pup has a sex that there is not, and a pup of the ninth the number of another.
  const change = isMended ? {} : { 5: put(8, "X"), 8: put(5, animals[3].id) };
  return { animals, text: litterLines(animals, ";", 3, ["Wurftag", "ZB-Nr. Vater", "ZB-Nr. Mutter", ...[1, 2, 3].flatMap((k) => [`Welpe ${k} ZB-Nr.`, `Welpe ${k} Geschlecht`])],
    ({ date, sire, dam }) => [`${two(date.day)}.${two(date.month)}.${date.year}`, sire, dam],
    ({ id, isMale }) => [id, isMale === undefined ? "" : isMale ? "R\u00fcde" : "H\u00fcndin"], change) };
}

function horses(years, isMended) {
  const animals = makeHerd({ years, litters: 10, idOf: (k) => `GB${40100 + k}H` });
  const offspring = animals.findIndex(({ sire, year }) => sire !== "" && year > 2012);
  const change = isMended ? {} : { [offspring]: put(4, animals[offspring].sire.replaceAll("0", "O")) };
  const quoted = (fields) => fields.map((field) => `"${field}"`);
  return { animals, offspring, text: lines(animals, ",", quoted(["Life Number", "Registered Name", "Sex", "Foaled", "Sire Life Number", "Dam Life Number"]),
    ({ id, name, isMale, date, sire, dam }) => quoted([id, name, isMale ? "Stallion" : "Mare", `${date.year}-${two(date.month)}-${two(date.day)}`, sire || "Unregistered", dam]),
    Object.fromEntries(Object.entries(change).map(([k, action]) => [k, (fields) => quoted(action(fields.map((field) => field.slice(1, -1))))]))) };
}

function cattle(years, isMended) {
  const animals = makeHerd({ years, litters: 12, idOf: (k) => `5280000${String(30012345 + k * 11)}` });
  // A founder has its own offspring for its father.
  const calf = animals.findIndex(({ sire, year }) => sire !== "" && year > 2012), sire = animals.findIndex(({ id }) => id === animals[calf].sire);
  const change = isMended ? {} : { [sire]: put(3, animals[calf].id) };
  return { animals, calf, sire, text: lines(animals, "\t", ["Oormerk", "Geslacht", "Geboortedatum", "Oormerk vader", "Oormerk moeder"],
    ({ id, isMale, date, sire: father, dam }) => [id, isMale ? "stier" : "koe", `${date.year}${two(date.month)}${two(date.day)}`, father, dam], change) };
}

function zoo(years, isMended) {
  const animals = makeHerd({ years, litters: 6, idOf: (k) => String(k + 1) });
  const again = { ...animals[20], id: "T-1" };  // entered a second time under a number of its own
  const shown = ({ id, name, isMale, date, sire, dam }) => [id, name, isMale ? "M" : "F", `${date.day}-${months[date.month - 1]}-${date.year}`, sire || "WILD", dam || "WILD", "Arnhem"];
  return { animals, text: lines(isMended ? animals : [...animals, again], "|", ["Studbook #", "House Name", "Sex", "Birth Date", "Sire #", "Dam #", "Location"], shown) };
}

function rabbits(years, isMended) {
  const animals = makeHerd({ years, litters: 4, litter: 3, idOf: (k, year) => `${year % 100}L${two(k)}` });
  const change = isMended ? {} : { 40: put(2, "01/01/1900") };
  return { animals, text: lines(animals, ";", ["Tatouage", "Sexe", "N\u00e9 le", "P\u00e8re", "M\u00e8re"],
    ({ id, isMale, date, sire, dam }) => [id, isMale ? "m\u00e2le" : "femelle", `${two(date.day)}/${two(date.month)}/${date.year}`, sire, dam], change) };
}

export const books = { sheep, dogs, horses, cattle, zoo, rabbits };

/** The herd as its data file has it: id, sire, dam, sex and date of each animal, in its order. */
export function truthOf(animals) {
  return animals.map(({ id, sire, dam, isMale, date }) => [id, sire, dam, isMale ? "m" : "f", date === undefined ? "" : `${date.year}${two(date.month)}${two(date.day)}`].join(" "));
}

/** The same of a data file that the desk has saved; its dates are written as its first line of the steer file says. */
export function readDataFile(text) {
  const [heading, ...rows] = text.split(/\r?\n/).filter((line) => line.trim() !== "");
  const delimiter = [";", "\t", "|", ","].find((one) => heading.includes(one));
  const names = heading.split(delimiter);
  const at = (fields, ...wanted) => fields[names.findIndex((name) => wanted.includes(name.toLowerCase()))] ?? "";
  return rows.map((row) => {
    const fields = row.split(delimiter);
    const pieces = at(fields, "birthdate", "geboortedatum").split(/[-/.]/);
    const date = pieces.length === 1 ? pieces[0] : pieces[0].length === 4 ? pieces.join("") : pieces.reverse().join("");
    const unknown = (id) => (/^(unknown|onbekend)$/i.test(id) ? "" : id);
    return [at(fields, "id"), unknown(at(fields, "sire", "vader")), unknown(at(fields, "dam", "moeder")), at(fields, "sex", "sekse").replace("v", "f"), date].join(" ");
  });
}
