// The worker: keeps the core with its handle and answers one question after the other. Files lie in the memory of the
// core's own file system.

import { bytesOfFile, Unreadable } from "./chosen_files";
import type { ChosenFile } from "./chosen_files";
import { gunzip } from "./gunzip";
import { operations, upkeep } from "./operations";
import type { Messages, Question } from "./protocol";
import { unpackArchive } from "./unpack";
import type { PackedPart } from "./unpack";

interface FileSystem {
  mkdir(path: string): void;
  chdir(path: string): void;
  readdir(path: string): string[];
  unlink(path: string): void;
  writeFile(path: string, bytes: Uint8Array, options?: { canOwn: boolean }): void;
  readFile(path: string): Uint8Array;
}
interface Core {
  FS: FileSystem;
  HEAPU8: Uint8Array;
  addFunction(procedure: (text: number) => void, signature: string): number;
  UTF8ToString(address: number): string;
  stringToUTF8(text: string, address: number, size: number): void;
  lengthBytesUTF8(text: string): number;
  [operation: `_${string}`]: (...values: number[]) => number;
}
declare function createDeskCore(options: { wasmBinary: ArrayBuffer }): Promise<Core>;
/** The compiled core, compressed, in 85 letters. */
declare const deskCoreBytes: string;
declare function postMessage(message: unknown, transfer?: Transferable[]): void;

const exportFolder = "/export", runFolder = "/run";

/** The date as the core wants it: year * 10000 + month * 100 + day. */
function numberOfToday(): number {
  const now = new Date();
  return now.getFullYear() * 10000 + (now.getMonth() + 1) * 100 + now.getDate();
}

interface Desk { core: Core; handle: number; }
type Procedure = (typeof operations)[keyof typeof operations];

/** Calls an operation of the core; texts become UTF-8 for as long as it takes. */
function call(desk: Desk, procedure: Procedure, values: (string | number)[]): void {
  const { core } = desk;
  const places: number[] = [];
  const numbers = values.map((value) => {
    if (typeof value === "number") return value;
    const size = core.lengthBytesUTF8(value) + 1, place = core._malloc(size);
    core.stringToUTF8(value, place, size);
    places.push(place);
    return place;
  });
  core[`_${procedure}`](desk.handle, ...numbers);
  for (const place of places) core._free(place);
}

/** The bytes of the last answer, copied out of the core. */
function answerBytes(desk: Desk): Uint8Array {
  const { core, handle } = desk;
  const begin = core[`_${upkeep.answer}`](handle) >>> 0, size = core[`_${upkeep.answerSize}`](handle) >>> 0;
  return core.HEAPU8.slice(begin, begin + size);
}

function answerText(desk: Desk): string {
  return new TextDecoder().decode(answerBytes(desk));
}

function askForObject(desk: Desk, procedure: Procedure, values: (string | number)[]): unknown {
  call(desk, procedure, values);
  return JSON.parse(answerText(desk));
}

async function createDesk(): Promise<Desk> {
  const core = await createDeskCore({ wasmBinary: await gunzip(deskCoreBytes) });
  core.FS.mkdir(exportFolder);
  core.FS.mkdir(runFolder);
  core.FS.chdir(exportFolder);
  const desk = { core, handle: 0 };
  const tell = core.addFunction((text) => postMessage({ phase: core.UTF8ToString(text) }), "vi");
  const folder = core._malloc(runFolder.length + 1);
  core.stringToUTF8(runFolder, folder, runFolder.length + 1);
  desk.handle = core[`_${upkeep.create}`](folder, numberOfToday(), tell);
  core._free(folder);
  return desk;
}

function emptyFolder(core: Core, folder: string): void {
  for (const name of core.FS.readdir(folder)) {
    if (name !== "." && name !== "..") core.FS.unlink(`${folder}/${name}`);
  }
}

/** A name that any file system takes. */
function safeName(name: string): string {
  const safe = name.replace(/[/\\\0]/g, "_");
  if (safe === "" || safe === "." || safe === "..") return "export";
  return safe.length <= 80 ? safe : safe.slice(0, 70) + safe.slice(-10);
}

/** Unpacks a workbook, so that the core can read it. Yields what stands in the way. */
async function unpackWorkbook(desk: Desk, name: string): Promise<Messages | undefined> {
  const answer = askForObject(desk, operations.parts, [name]) as Messages & { parts: PackedPart[] };
  if (answer.messages.length > 0) return answer;
  if (!answer.parts.some(({ isPacked }) => isPacked)) return undefined;
  postMessage({ phase: "unpacking" });
  const unpacked = await unpackArchive(desk.core.FS.readFile(name), answer.parts);
  desk.core.FS.writeFile(name, unpacked, { canOwn: true });
  return undefined;
}

/** Takes the files and opens them: one is an export, two are a steer file and its data file. */
async function open(desk: Desk, files: ChosenFile[], settings: string): Promise<unknown> {
  const { core } = desk;
  emptyFolder(core, exportFolder);
  emptyFolder(core, runFolder);
  postMessage({ phase: "reading" });
  for (const file of files) {
    const bytes = file.bytes ?? (await bytesOfFile(file.file));
    core.FS.writeFile(safeName(file.name), new Uint8Array(bytes), { canOwn: true });
  }
  const names = files.map((file) => safeName(file.name));
  const steer = names.find((name) => /\.ini$/i.test(name));
  if (files.length === 1 || steer === undefined) {
    return (await unpackWorkbook(desk, names[0])) ?? askForObject(desk, operations.open, [names[0], settings]);
  }
  const others = names.filter((name) => name !== steer);
  const available = others.length > 1 ? others.find((name) => /_available\.txt$/i.test(name)) ?? "" : "";
  return askForObject(desk, operations.openPair, [steer, others.find((name) => name !== available) ?? steer, available]);
}

async function answer(desk: Desk, question: Question): Promise<unknown> {
  const { operation, values } = question;
  if (operation === "open") return open(desk, question.files ?? [], String(values[0]));
  if (operation === "files") return desk.core.FS.readFile(String(values[0])).slice();
  if (operation === "language") return call(desk, operations.language, values);
  if (operation === "text" || operation === "bytes") {
    call(desk, operations[operation], values);
    return operation === "text" ? answerText(desk) : answerBytes(desk);
  }
  return askForObject(desk, operations[operation], values);
}

// Made ready before the first question.
const desk = createDesk();
desk.catch(() => undefined);
let last: Promise<void> = Promise.resolve();

async function reply(question: Question): Promise<void> {
  try {
    const value = await answer(await desk, question);
    postMessage({ id: question.id, answer: value }, value instanceof Uint8Array ? [value.buffer as ArrayBuffer] : []);
  } catch (problem) {
    const trouble = problem instanceof Unreadable ? { kind: problem.trouble, name: problem.fileName } : undefined;
    postMessage({ id: question.id, failure: String(problem), trouble });
  }
}

addEventListener("message", (event) => {
  const question = (event as MessageEvent).data as Question;
  last = last.then(() => reply(question));
});
