// What the file holds compressed, as it was before.

interface Decompressor { readonly readable: ReadableStream<Uint8Array>; readonly writable: WritableStream<Uint8Array>; }
declare const DecompressionStream: new (format: "gzip") => Decompressor;

/** Bytes that gzip has compressed, in letters of base64. */
export function gunzip(text: string): Promise<ArrayBuffer> {
  const bytes = Uint8Array.from(atob(text), (letter) => letter.charCodeAt(0));
  return new Response(new Blob([bytes]).stream().pipeThrough(new DecompressionStream("gzip"))).arrayBuffer();
}
