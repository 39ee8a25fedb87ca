// Measures the desk in Chromium, from files being chosen to charts on the screen, in turns with the program and its page.
//   node desk/tests/measure.mjs ANIMALS...
// For each number: seconds of the desk and of the program, the most memory that the page's process had, and the longest
// time for which the window stood still.

import { execFileSync } from "node:child_process";
import { mkdtempSync, readFileSync, readdirSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { openDesk, root, startBrowser } from "./browser.mjs";

const build = join(root, "build/release"), repeats = 3;
const makePopulation = process.env.MAKE_POPULATION ?? join(build, "bench/make_population");
const programs = process.env.PROGRAMS ?? build;

/** The most memory that a process of a page had, in MB. */
function mostMemory() {
  const sizes = readdirSync("/proc").filter((name) => /^\d+$/.test(name)).map((pid) => {
    try {
      if (!readFileSync(`/proc/${pid}/cmdline`, "latin1").includes("--type=renderer")) return 0;
      return Number(/VmHWM:\s*(\d+)/.exec(readFileSync(`/proc/${pid}/status`, "latin1"))?.[1] ?? 0) / 1024;
    } catch {
      return 0;
    }
  });
  return Math.max(...sizes);
}

async function measureDesk(folder, name) {
  const browser = await startBrowser();
  const { page, close } = await openDesk(browser);
  await page.evaluate(() => {
    globalThis.longest = 0;
    new PerformanceObserver((list) => {
      for (const { duration } of list.getEntries()) globalThis.longest = Math.max(globalThis.longest, duration);
    }).observe({ type: "longtask" });
    globalThis.begin = 0;
    document.addEventListener("change", () => { globalThis.begin = performance.now(); }, { capture: true, once: true });
    // The steps are entered as soon as they can be.
    new MutationObserver(() => {
      const step = document.getElementById("step-results");
      if (globalThis.begin > 0 && document.getElementById("busy").hidden && !step.disabled && !step.ariaCurrent) step.click();
      if (globalThis.end === undefined && document.querySelector("#results-body svg") !== null) {
        requestAnimationFrame(() => setTimeout(() => { globalThis.end ??= performance.now(); }));
      }
    }).observe(document.body, { childList: true, subtree: true, attributes: true });
  });
  await (await page.$("#files")).uploadFile(join(folder, name), join(folder, "pedigreewatch.ini"));
  await page.waitForFunction(() => globalThis.end !== undefined, { timeout: 600_000 });
  const seconds = await page.evaluate(() => (globalThis.end - globalThis.begin) / 1000);
  const longest = await page.evaluate(() => globalThis.longest), memory = mostMemory();
  await close();
  await browser.close();
  return { seconds, longest, memory };
}

function measureProgram(folder) {
  const seconds = (program, ...values) => {
    const begin = process.hrtime.bigint();
    execFileSync(join(programs, program), values, { cwd: folder, stdio: "ignore" });
    return Number(process.hrtime.bigint() - begin) / 1e9;
  };
  return { report: seconds("pedigreewatch"), page: seconds("pedigreewatch-tools", "page") };
}

for (const count of process.argv.slice(2)) {
  const folder = mkdtempSync(join(tmpdir(), "desk-measure-"));
  execFileSync(makePopulation, ["bench", count, folder], { stdio: "ignore" });
  const name = readFileSync(join(folder, "pedigreewatch.ini"), "latin1").split(/\r?\n/)[1];
  for (let k = 0; k < repeats; ++k) {
    const { seconds, longest, memory } = await measureDesk(folder, name), program = measureProgram(folder);
    console.log(`${count}: desk ${seconds.toFixed(2)} s, ${memory.toFixed(0)} MB, window still for ${longest.toFixed(0)} ms; ` +
      `report ${program.report.toFixed(2)} s, page ${program.page.toFixed(2)} s`);
  }
  rmSync(folder, { recursive: true, force: true });
}
