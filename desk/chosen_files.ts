// The files that the user brings: whether they can be read, and their bytes, so that they are still here when the worker
// has to be begun anew or somebody has changed them on the disk.

export interface ChosenFile {
  name: string;
  /** None of a file that is too large to be kept; it is read again from where it lies. */
  bytes?: ArrayBuffer;
  file: File;
}

export type FileTrouble = "folder" | "tooLarge" | "changed";
export class Unreadable extends Error {
  constructor(readonly trouble: FileTrouble, readonly fileName: string) { super(trouble); }
}

/** So many bytes of files are kept in all. */
export const mostKept = 300_000_000;
/** A browser hands over no more of a file in one piece, and the core addresses no more. */
export const mostRead = 2_000_000_000;

/** What a drop has brought; of a folder the browser makes a file that cannot be read. */
export function filesOfDrop(transfer: DataTransfer | null): { files: File[]; folders: string[] } {
  const entries = [...(transfer?.items ?? [])].map((item) => item.webkitGetAsEntry?.() ?? null);
  const folders = entries.filter((entry) => entry?.isDirectory === true).map((entry) => entry?.name ?? "");
  return { files: [...(transfer?.files ?? [])], folders };
}

/** Reads the files. Throws Unreadable, by what the browser says of them: it has no words that its users know. */
export async function readFiles(files: File[]): Promise<ChosenFile[]> {
  const all = files.reduce((sum, file) => sum + file.size, 0);
  const chosen: ChosenFile[] = [];
  for (const file of files) {
    if (file.size > mostRead) throw new Unreadable("tooLarge", file.name);
    chosen.push(all > mostKept ? { name: file.name, file } : { name: file.name, file, bytes: await bytesOfFile(file) });
  }
  return chosen;
}

export async function bytesOfFile(file: File): Promise<ArrayBuffer> {
  try {
    return await file.arrayBuffer();
  } catch (problem) {
    // A folder is no file from the start; any other file has been there when it was chosen.
    const isFolder = file.type === "" && file.size % 4096 === 0 && file.size <= 4096 * 16 && !file.name.includes(".");
    throw new Unreadable(isFolder ? "folder" : "changed", file.name);
  }
}

/** A small file as text: with a byte order mark as that says, otherwise UTF-8 where it can be, or else Windows-1252. */
export async function textOfFile(file: Blob): Promise<string> {
  const bytes = new Uint8Array(await file.arrayBuffer());
  const isWide = bytes[0] === 0xFF && bytes[1] === 0xFE;
  if (isWide) return new TextDecoder("utf-16le").decode(bytes);
  try {
    return new TextDecoder("utf-8", { fatal: true }).decode(bytes);
  } catch (problem) {
    return new TextDecoder("windows-1252").decode(bytes);
  }
}
