// Workbooks that come in: the core has nothing to unpack with, the browser has. It gets an archive with the same parts,
// none of them packed.

/** A part of an archive, by its places and sizes in bytes. */
export interface PackedPart {
  name: string; begin: number; packedSize: number; size: number; checksum: number; isPacked: boolean;
}

interface Decompressor { readonly readable: ReadableStream<Uint8Array>; readonly writable: WritableStream<Uint8Array>; }
declare const DecompressionStream: new (format: "deflate-raw") => Decompressor;

const headerMark = 0x04034b50, entryMark = 0x02014b50, endMark = 0x06054b50;
const headerSize = 30, entrySize = 46, endSize = 22;

/** What is packed. One piece more than it should be is enough to see that it is damaged, and too little to fill memory. */
async function inflated(packed: Uint8Array, size: number): Promise<Uint8Array> {
  const reader = new Blob([packed]).stream().pipeThrough(new DecompressionStream("deflate-raw")).getReader();
  const pieces: Uint8Array[] = [];
  let filled = 0;
  try {
    for (let piece = await reader.read(); !piece.done && filled <= size; piece = await reader.read()) {
      pieces.push(piece.value);
      filled += piece.value.length;
    }
    await reader.cancel();
  } catch {
    // Damaged: the core compares size and checksum, and says which part it is.
  }
  return new Uint8Array(await new Blob(pieces).arrayBuffer());
}

/** The header in front of a part, or its entry in the table of contents at the end. */
function describe(mark: number, part: PackedPart, length: number, place: number): Uint8Array {
  const name = new TextEncoder().encode(part.name), isEntry = mark === entryMark;
  const bytes = new Uint8Array((isEntry ? entrySize : headerSize) + name.length);
  const view = new DataView(bytes.buffer), start = isEntry ? 14 : 12;  // of checksum, size, size, length of the name
  view.setUint32(0, mark, true);
  view.setUint32(start + 2, part.checksum, true);
  view.setUint32(start + 6, length, true);
  view.setUint32(start + 10, part.size, true);
  view.setUint16(start + 14, name.length, true);
  if (isEntry) view.setUint32(42, place, true);
  bytes.set(name, bytes.length - name.length);
  return bytes;
}

/** The archive of these parts of `archive`, unpacked. */
export async function unpackArchive(archive: Uint8Array, parts: PackedPart[]): Promise<Uint8Array> {
  const pieces: Uint8Array[] = [], entries: Uint8Array[] = [];
  let place = 0;
  for (const part of parts) {
    const stored = archive.subarray(part.begin, part.begin + part.packedSize);
    const content = part.isPacked ? await inflated(stored, part.size) : stored;
    const header = describe(headerMark, part, content.length, 0);
    pieces.push(header, content);
    entries.push(describe(entryMark, part, content.length, place));
    place += header.length + content.length;
  }
  const end = new Uint8Array(endSize), view = new DataView(end.buffer);
  view.setUint32(0, endMark, true);
  view.setUint16(8, parts.length, true);
  view.setUint16(10, parts.length, true);
  view.setUint32(12, entries.reduce((sum, entry) => sum + entry.length, 0), true);
  view.setUint32(16, place, true);
  return new Uint8Array(await new Blob([...pieces, ...entries, end]).arrayBuffer());
}
