// What the page asks the worker, and what the worker says. The answers are those of src/desk.

import type { ChosenFile, FileTrouble } from "./chosen_files";
import type { operations } from "./operations";

/** "files" hands over a file that the worker has; everything else is done by the core. */
export type Operation = keyof typeof operations | "files";

export interface Question { id: number; operation: Operation; values: (string | number)[]; files?: ChosenFile[]; }
/** `trouble`: the file that could not be read, and why. */
export interface Reply { id: number; answer?: unknown; failure?: string; trouble?: { kind: FileTrouble; name: string }; }
export interface PhaseMessage { phase: string; }

export interface Messages { messages: string[]; }
export interface Field { name: string; description: string; isRequired: boolean; }
export interface CountedName { place: number; text: string; count: number; isListed: boolean; }

/** What only the user can decide; each answer is a value of the setting. */
export interface OpenQuestion { text: string; setting: string; answers: { value: string; text: string; setting?: string }[]; }

export interface ExportAnswer extends Messages {
  questions: OpenQuestion[];
  evidence: { label: string; text: string }[];
  sheets: string[]; sheet: string; encoding: string; delimiter: string; hasHeader: boolean; animals: number;
  headings: string[]; columns: string[]; fields: Field[]; lines: string[][];
  sexes: { text: string; count: number; meaning: "male" | "female" | "unknown" }[];
  unknownParents: { text: string; count: number; isUnknown: boolean }[];
  subpopulations: CountedName[]; colours: CountedName[];
  dates: { isAmbiguous: boolean; hasShortYears: boolean; hasSerials: boolean; written: string; orders: { layout: string; count: number }[] };
  species: string; allSpecies: string[]; name: string; steer: string; dataName: string; availableName: string; answers?: string;
}

/** Answers of an earlier export as settings; `unread`: lines that are no option about an export, or whose value is none that the option takes. */
export interface KeptAnswers extends Messages { settings: [string, string][]; unread: { line: number; text: string }[]; }

export interface FilesAnswer extends Messages {
  note: string; steer: string; steerPath: string; dataPath: string; availablePath: string; available: number; dataName: string; reportName: string;
  population: string;
}

export interface FindingKind {
  name: string; title: string; severity: "S" | "W" | "L"; severityText: string; parts: string; count: number; advice: string;
  canDropDates: boolean; canDropParents: boolean;
}
export interface CorrectionRow {
  id: string; field: string; was: string; becomes: string; why: string; when: string;
  /** What people would write for the number of a day. */
  wasDay?: string; becomesDay?: string;
  fate: "applied" | "alreadySo" | "differs" | "noAnimal" | "noColumn" | "idTaken" | "noOther" | "hasNewId" | "hasGone"; said: string;
}
/** `list` has what could be read of the list that was given, `faults` say what could not. */
export interface CorrectionsAnswer extends Messages { faults: string[]; list: string; sentence: string; rows: CorrectionRow[]; }
/** A list of corrections with new ones, and how many those are; `refused`: why there is none. */
export interface ProposedList { list: string; refused: string; count: number; }
export interface FindingLines {
  headings?: string[]; fields: string[]; column: number; cell: string; proposal: string; number: number; mayBeOne: boolean; exchange: boolean; rows: { line: number; day?: string; animal: number; cells: string[] }[];
}
export interface CheckAnswer extends Messages {
  animals: number; canRun: boolean; isFromExport: boolean; count: number; kinds: FindingKind[];
}
export interface FindingRow {
  line: number; column: number; id: string; kind: string; severity: "S" | "W" | "L"; text: string;
  original: string;
}

export interface RunAnswer extends Messages { animals: number; firstYear: number; lastYear: number; reportName: string; subpopulations: string[]; sireAges: number[]; damAges: number[]; isAvailabilityTold: boolean; available: number; availableNote: string; corrections: number; }

/** `gone`: what the export says of an animal that is no longer there; empty where it says no more than that. */
export interface Animal { position: number; id: string; name: string; isMale: boolean; year: number; f: number | null; gone?: string; }
/** The first animals that a search has found, and how many there are. */
export interface FoundAnimals { animals: Animal[]; count: number; }
/** A row of the table of all animals. */
export interface AnimalListRow extends Animal { meanKinship: number | null; generations: number; offspring: number; subpopulation: string; }
export interface CardAnswer { position: number; id: string; name: string; html?: string; }
export interface Parent extends Animal { meanKinship: number | null; }
export interface Mate extends Parent { equivalents: number; }
export interface PairAnswer {
  offspringF: number | null; limit?: number; isBeyond?: boolean; sire: Mate; dam: Mate; ancestors: (Animal & { contribution: number | null })[];
}
export interface MaleRow extends Parent {
  offspringF: number | null; equivalents: number; offspring: number; age: number | null; isShallow: boolean; isBeyond: boolean;
}

/** All that were born in some years: how many, and they themselves where they are no more than `most`. */
export interface BornAnimals { count: number; most: number; animals: Animal[]; }
/** The animals of a list, a line each; where no animal has the identification, the position is 0 and the rest missing. */
export interface ListedAnimals { animals: (Animal | { position: number; id: string })[]; }
export interface TableMate extends Mate { isShallow: boolean; }
/** `f` and `classes` row by row, a row for each female; `beyond` are places in them. */
export interface MatesAnswer extends Messages {
  females: TableMate[]; males: TableMate[]; f: number[]; classes: number[]; beyond: number[]; limit: number;
}

export interface PlanAnswer extends Messages {
  candidates: string[]; lines: string[]; warnings: string[]; headings: string[]; ways: string[][]; count: number; meanF: number;
}
/** What was measured; replicates come in afterwards. */
export interface ForecastAnswer extends Messages { replicates: number; }
/** The fields of a forecast: a heading has no name; without choices something is typed. */
export interface ForecastFields { fields: ForecastField[]; }
export interface ForecastField { name: string; label: string; choices: { value: string; text: string }[]; }
/** The replicates so far, in sentences and charts. */
export interface GrownAnswer extends Messages { done: number; replicates: number; html: string; }
export interface PlanRow { female: Animal; male: Animal; f: number; isFixed: boolean; }
