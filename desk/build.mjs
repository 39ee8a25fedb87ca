// Puts the desk together: the core as it was built for a worker, the modules of this folder bundled, style and page in
// one file, with a content security policy that names each script and style by its hash and allows no request.
//   node desk/build.mjs WASM_BUILD OUTPUT      in the root of the clone

import { createHash } from "node:crypto";
import { execFileSync } from "node:child_process";
import { cpSync, mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { join, resolve } from "node:path";
import { gzipSync } from "node:zlib";

const [wasmBuild, output] = process.argv.slice(2).map((path) => resolve(path));
const work = join(wasmBuild, "desk-page");
rmSync(work, { recursive: true, force: true });
mkdirSync(work, { recursive: true });

/** What a page of results needs besides its body, taken from such a page. */
function partsOfPage() {
  const folder = join(work, "example");
  cpSync("examples/moorland-en", folder, { recursive: true });
  execFileSync("node", [join(wasmBuild, "pedigreewatch-tools.js"), "page"], { cwd: folder, stdio: "pipe" });
  const page = readFileSync(join(folder, "moorland.html"), "utf8");
  const between = (name) => {
    const found = page.match(new RegExp(`<${name}>([^]*?)</${name}>`));
    if (found === null) throw new Error(`the page of results has no ${name}`);
    return found[1];
  };
  return { style: between("style"), script: between("script") };
}

function bundle(entry) {
  return execFileSync("esbuild", [`desk/${entry}.ts`, "--bundle", "--minify", "--format=iife", "--target=es2021",
    "--charset=ascii", `--alias:page-script=${join(work, "page_script.js")}`], { encoding: "utf8", maxBuffer: 1 << 28 });
}

/** A text that stands in a script element. */
function inScript(text) {
  if (/<\/script|<!--/i.test(text)) throw new Error("a script would end early");
  return text;
}

const hashOf = (text) => `'sha256-${createHash("sha256").update(text).digest("base64")}'`;

const parts = partsOfPage();
writeFileSync(join(work, "page_script.js"), `export function readFigures() {\n${parts.script}\n}\n`);
const style = readFileSync("desk/style.css", "utf8");
const script = inScript(bundle("main"));
// Compressed by a good half, in letters of which a script can hold any. Browsers that know vectors in WebAssembly know
// how to decompress too.
const core = gzipSync(readFileSync(join(wasmBuild, "desk_core.wasm")), { level: 9 }).toString("base64");
const worker = inScript(`${readFileSync(join(wasmBuild, "desk_core.js"), "utf8")}
const deskCoreBytes = "${core}";
${bundle("worker")}`);
const example = (folder, name) => inScript(readFileSync(join("examples", folder, name), "latin1"));
const policy = ["default-src 'none'", `script-src ${hashOf(script)} 'wasm-unsafe-eval'`, "worker-src blob:",
  `style-src ${hashOf(style)} ${hashOf(parts.style)}`, "connect-src 'none'", "base-uri 'none'", "form-action 'none'"].join("; ");
const values = { policy, style, "page-style": parts.style, worker, script,
  "example-en": example("moorland-en", "moorland.txt"), "example-nl": example("heide-nl", "heide.txt") };
const page = readFileSync("desk/index.html", "utf8").replace(/@([a-z-]+)@/g, (_place, name) => values[name]);
writeFileSync(output, page);
console.log(`${output}: ${page.length} characters, ${Buffer.byteLength(page)} bytes`);
