// What the file holds compressed, as it was before.

interface Decompressor { readonly readable: ReadableStream<Uint8Array>; readonly writable: WritableStream<Uint8Array>; }
declare const DecompressionStream: new (format: "gzip") => Decompressor;

/** Bytes written in 85 letters, five for each four of them: those of ASCII from "#" to "y" without "<" and the backslash.
 * Shorter than base64 by a sixteenth, which is a hundred thousand bytes of the core. build.mjs writes them so. */
export function bytesOfLetters(text: string): Uint8Array {
  const bytes = new Uint8Array(Math.floor(text.length * 4 / 5));
  let place = 0;
  for (let start = 0; start < text.length; start += 5) {
    let value = 0;
    for (let k = start; k < start + 5; ++k) {
      const code = k < text.length ? text.charCodeAt(k) : 0x79;
      value = value * 85 + code - 0x23 - (code > 0x3c ? 1 : 0) - (code > 0x5c ? 1 : 0);
    }
    for (let shift = 24; shift >= 0 && place < bytes.length; shift -= 8) bytes[place++] = value / 2 ** shift & 0xff;
  }
  return bytes;
}

/** Bytes that gzip has compressed, in such letters. */
export function gunzip(text: string): Promise<ArrayBuffer> {
  const bytes = bytesOfLetters(text);
  return new Response(new Blob([bytes]).stream().pipeThrough(new DecompressionStream("gzip"))).arrayBuffer();
}
