// Puts the desk together: the core as it was built for a worker, the modules of this folder bundled, style and page in
// one file, with a content security policy that names each script and style by its hash and allows no request.
//   node desk/build.mjs WASM_BUILD OUTPUT      in the root of the clone

import { createHash } from "node:crypto";
import { execFileSync } from "node:child_process";
import { mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { join, resolve } from "node:path";
import { runInNewContext } from "node:vm";
import { gzipSync } from "node:zlib";

const [wasmBuild, output] = process.argv.slice(2).map((path) => resolve(path));
const work = join(wasmBuild, "desk-page");
rmSync(work, { recursive: true, force: true });
mkdirSync(work, { recursive: true });

const coreScript = readFileSync(join(wasmBuild, "desk_core.js"), "utf8");
const coreBytes = readFileSync(join(wasmBuild, "desk_core.wasm"));

/** What a page of results needs besides its body: the core is asked for it as the worker asks, in what a worker has. */
async function partsOfPage() {
  const worker = { self: { location: { href: "" } }, importScripts() {}, console, WebAssembly, TextDecoder, TextEncoder, performance, crypto };
  const core = await runInNewContext(`${coreScript}\ncreateDeskCore`, worker)({ wasmBinary: coreBytes });
  const place = (text) => {
    const size = core.lengthBytesUTF8(text) + 1, address = core._malloc(size);
    core.stringToUTF8(text, address, size);
    return address;
  };
  const desk = core._desk_create(place("/"), 0, 0);
  const part = (name) => {
    core._desk_text(desk, place(name));
    const text = core.UTF8ToString(core._desk_answer(desk));
    if (text === "") throw new Error(`the page of results has no ${name}`);
    return text;
  };
  return { style: part("style"), cardStyle: part("animalStyle"), script: part("script") };
}

function bundle(entry) {
  return execFileSync("esbuild", [`desk/${entry}.ts`, "--bundle", "--minify", "--format=iife", "--target=es2021",
    "--charset=ascii", `--alias:page-script=${join(work, "page_script.js")}`], { encoding: "utf8", maxBuffer: 1 << 28 });
}

/** Names at the top stay: the worker calls them. */
const minified = (file) => execFileSync("esbuild", [file, "--minify", "--charset=ascii"], { encoding: "utf8", maxBuffer: 1 << 28 });

/** A text that stands in a script element. */
function inScript(text) {
  if (/<\/script|<!--/i.test(text)) throw new Error("a script would end early");
  return text;
}

const hashOf = (text) => `'sha256-${createHash("sha256").update(text).digest("base64")}'`;

const parts = await partsOfPage();
writeFileSync(join(work, "page_script.js"), `export function readFigures() {\n${parts.script}\n}\n`);
const style = minified("desk/style.css").trim();
const script = inScript(bundle("main"));
/** Bytes in 85 letters, of which a script can hold any: five for each four of them (gunzip.ts reads them). */
function inLetters(bytes) {
  let letters = "";
  for (let start = 0; start < bytes.length; start += 4) {
    const count = Math.min(4, bytes.length - start);
    let value = 0;
    for (let k = start; k < start + 4; ++k) value = value * 256 + (k < bytes.length ? bytes[k] : 0);
    let group = "";
    for (let digit = 0; digit < 5; ++digit, value = Math.floor(value / 85)) {
      const rest = value % 85, code = 0x23 + rest;
      group = String.fromCharCode(code + (code >= 0x3c ? 1 : 0) + (code >= 0x5b ? 1 : 0)) + group;
    }
    letters += group.slice(0, count + 1);
  }
  return letters;
}
/** Compressed, in these letters. Browsers that know vectors in WebAssembly know how to decompress too. */
const packed = (bytes) => inLetters(gzipSync(bytes, { level: 9 }));
/** The core is most of the file: a longer search for a shorter compression, of the same kind, is worth some seconds. */
const packedCore = () => inLetters(execFileSync("zopfli", ["--i1", "-c", join(wasmBuild, "desk_core.wasm")], { maxBuffer: 1 << 28 }));
const worker = inScript(`${minified(join(wasmBuild, "desk_core.js"))}
const deskCoreBytes = "${packedCore()}";
${bundle("worker")}`);
const example = (folder, name) => packed(readFileSync(join("examples", folder, name)));
const policy = ["default-src 'none'", `script-src ${hashOf(script)} 'wasm-unsafe-eval'`, "worker-src blob:",
  `style-src ${hashOf(style)} ${hashOf(parts.style)} ${hashOf(parts.cardStyle)}`, "connect-src 'none'", "base-uri 'none'", "form-action 'none'"].join("; ");
const version = readFileSync("CMakeLists.txt", "utf8").match(/^project\(pedigreewatch VERSION (\S+)/m)[1];
const values = { version, policy, style, "page-style": parts.style, "card-style": parts.cardStyle, worker, script,
  "example-en": example("moorland-en", "moorland.txt"), "example-nl": example("heide-nl", "heide.txt") };
const page = readFileSync("desk/index.html", "utf8").replace(/@([a-z-]+)@/g, (_place, name) => values[name]);
writeFileSync(output, page);
console.log(`${output}: ${page.length} characters, ${Buffer.byteLength(page)} bytes`);
