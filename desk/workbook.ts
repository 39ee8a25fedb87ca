// Workbooks of the core: it writes them unpacked, for it has nothing to pack with; the browser has.

import { bytesOf } from "./desk";
import type { Desk } from "./desk";

export const workbookType = "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet";

// The library of the compiler does not know it yet, and an older browser has none.
declare const CompressionStream: (new (format: "deflate-raw") =>
  { readable: ReadableStream<Uint8Array>; writable: WritableStream<Uint8Array> }) | undefined;

const endMark = 0x06054b50, endSize = 22, entrySize = 46, headerSize = 30, packed = 8;

type Packer = NonNullable<typeof CompressionStream>;

async function deflated(bytes: Uint8Array, packer: Packer): Promise<Uint8Array> {
  const stream = new Blob([bytes]).stream().pipeThrough(new packer("deflate-raw"));
  return new Uint8Array(await new Response(stream).arrayBuffer());
}

/** The archive with its parts packed. It is one of the core's: sizes stand in the headers, nothing in between. */
async function packArchive(archive: Uint8Array, packer: Packer): Promise<Uint8Array> {
  const view = new DataView(archive.buffer, archive.byteOffset, archive.byteLength);
  const end = archive.length - endSize;
  if (end < 0 || view.getUint32(end, true) !== endMark) throw new Error("no archive");
  const pieces: Uint8Array[] = [], entries: Uint8Array[] = [];
  let place = 0, entryAt = view.getUint32(end + 16, true);
  for (let left = view.getUint16(end + 10, true); left > 0; left -= 1) {
    const nameSize = view.getUint16(entryAt + 28, true), size = view.getUint32(entryAt + 24, true);
    const headerAt = view.getUint32(entryAt + 42, true), contentAt = headerAt + headerSize + nameSize;
    const content = await deflated(archive.subarray(contentAt, contentAt + size), packer);
    const header = archive.slice(headerAt, contentAt), entry = archive.slice(entryAt, entryAt + entrySize + nameSize);
    for (const [bytes, method, packedSize] of [[header, 8, 18], [entry, 10, 20]] as const) {
      const written = new DataView(bytes.buffer);
      written.setUint16(method, packed, true);
      written.setUint32(packedSize, content.length, true);
    }
    new DataView(entry.buffer).setUint32(42, place, true);
    pieces.push(header, content);
    entries.push(entry);
    place += header.length + content.length;
    entryAt += entrySize + nameSize;
  }
  const ending = archive.slice(end), written = new DataView(ending.buffer);
  written.setUint32(12, entries.reduce((sum, entry) => sum + entry.length, 0), true);
  written.setUint32(16, place, true);
  return new Uint8Array(await new Blob([...pieces, ...entries, ending]).arrayBuffer());
}

/** A workbook of the core, packed where the browser can. */
export async function workbookOf(desk: Desk, name: string): Promise<Uint8Array> {
  const archive = await bytesOf(desk, name);
  return typeof CompressionStream === "undefined" ? archive : packArchive(archive, CompressionStream);
}
