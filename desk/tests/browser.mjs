// Pages in a real browser, from their files on disk, with everything that the browser asks for recorded; and the desk.

import assert from "node:assert/strict";
import { existsSync, mkdtempSync, readFileSync, rmSync, statSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join, resolve } from "node:path";
import { after, before } from "node:test";
import { pathToFileURL } from "node:url";
import puppeteer from "puppeteer-core";

const axe = readFileSync(new URL("node_modules/axe-core/axe.min.js", import.meta.url), "utf8");

/** Where Firefox keeps what is saved: it is told once, when it starts. */
const firefoxFolder = join(tmpdir(), `desk-firefox-${process.pid}`);

export const root = resolve(import.meta.dirname ?? ".", "../..");
export const deskFile = process.env.DESK_FILE ?? join(root, "build/desk/pedigreewatch-desk.html");
export const isFirefox = process.env.DESK_BROWSER === "firefox";

/** Of a test that looks at what is printed, which only Chromium does for it. */
export const onlyPrinted = { skip: isFirefox };

export function startBrowser() {
  return isFirefox
    ? puppeteer.launch({ browser: "firefox", executablePath: "/usr/bin/firefox-esr", headless: true,
      extraPrefsFirefox: { "browser.download.folderList": 2, "browser.download.dir": firefoxFolder,
        "browser.download.always_ask_before_handling_new_types": false } })
    : puppeteer.launch({ executablePath: "/usr/bin/chromium", headless: true, protocolTimeout: 600_000,
      args: ["--no-sandbox", "--disable-dev-shm-usage", "--lang=en"] });
}

/** A new window with a file. `requests` are addresses that it asked for besides itself and its own worker. */
export async function openPage(browser, file, viewport) {
  const folder = mkdtempSync(join(tmpdir(), "desk-"));
  const context = await browser.createBrowserContext(isFirefox ? {} : { downloadBehavior: { policy: "allow", downloadPath: folder } });
  const page = await context.newPage();
  await page.setViewport(viewport);
  const requests = [], problems = [], address = pathToFileURL(file).href;
  page.on("request", (request) => {
    // What Firefox draws its own controls with lies in itself, as data.
    const isOwn = request.url() === address || request.url().startsWith("blob:") || (isFirefox && request.url().startsWith("data:"));
    if (!isOwn) requests.push(request.url());
  });
  page.on("pageerror", (problem) => problems.push(String(problem)));
  page.on("console", (message) => {
    if (message.type() === "error" || message.type() === "warn") problems.push(message.text());
  });
  page.on("dialog", (dialog) => {
    problems.push(`dialog: ${dialog.message()}`);
    void dialog.dismiss();
  });
  await page.goto(address);
  const close = async () => {
    await context.close();
    rmSync(folder, { recursive: true, force: true });
  };
  return { page, folder, requests, problems, close };
}

/** A new window with the desk. */
export async function openDesk(browser, { language = "en" } = {}) {
  const desk = await openPage(browser, deskFile, { width: 1100, height: 900 });
  await desk.page.click(language === "nl" ? "#dutch" : "#english");
  await idle(desk.page);
  return desk;
}

/**
 * One browser for all tests of a file. `withDesk` runs an action with a desk of its own, which must have asked for nothing
 * and met no problem; `openTestDesk` opens one of which nothing is demanded, and which is closed by whoever opens it.
 */
export function testDesks() {
  let browser;
  before(async () => { browser = await startBrowser(); });
  after(async () => { await browser.close(); });
  const openTestDesk = (options = {}) => openDesk(browser, options);
  const withDesk = async (action, options = {}) => {
    const desk = await openTestDesk(options);
    try {
      await action(desk.page, desk);
      assert.deepEqual(desk.requests, [], "the desk has asked for something");
      assert.deepEqual(desk.problems, [], "the browser has met problems");
    } finally {
      await desk.close();
    }
  };
  return { openTestDesk, withDesk };
}

/** What axe-core finds that keeps people from using the page, as one text a rule. */
export async function violations(page) {
  await page.evaluate(axe);
  const found = await page.evaluate(() => axe.run(document));
  return found.violations.map(({ id, nodes }) => `${id}: ${nodes.map(({ html }) => html.slice(0, 120)).join(" | ")}`);
}

/** Until nothing is being worked on. */
export async function idle(page, timeout = 60_000) {
  await page.waitForFunction(() => document.getElementById("busy").hidden, { timeout });
}

export async function choose(page, ...files) {
  const input = await page.$("#files");
  await input.uploadFile(...files);
  await idle(page, 300_000);
}

export async function enter(page, step, timeout = 60_000) {
  await page.click(`#step-${step}`);
  await page.waitForSelector(`#step-${step}[aria-current="step"]`, { timeout: 10_000 });
  await idle(page, timeout);
}

export const textOf = (page, selector) => page.$eval(selector, (element) => element.textContent);

export async function pressButton(page, label) {
  const handle = await page.evaluateHandle((wanted) =>
    [...document.querySelectorAll("button")].find((button) => button.textContent === wanted) ?? null, label);
  const element = handle.asElement();
  if (element === null) throw new Error(`there is no button "${label}"`);
  await element.click();
}

/** Presses a button that saves a file, and yields its bytes. */
export async function saved(desk, label, name) {
  const file = join(isFirefox ? firefoxFolder : desk.folder, name);
  rmSync(file, { force: true });
  await pressButton(desk.page, label);
  // Firefox makes the file at once and fills it under another name.
  const isThere = () => existsSync(file) && statSync(file).size > 0 && !existsSync(`${file}.part`);
  for (let waited = 0; waited < 600 && !isThere(); ++waited) await new Promise((done) => setTimeout(done, 100));
  if (!isThere()) throw new Error(`${name} was not saved`);
  return readFileSync(file);
}

export function writeInput(desk, name, content) {
  const file = join(desk.folder, `in-${Math.random().toString(36).slice(2)}-${name}`);
  writeFileSync(file, content);
  return file;
}

/** Selects what stands in a field, named by a selector or given itself, so that what is typed takes its place. */
export async function selectText(page, field) {
  await (typeof field === "string" ? page.click(field) : field.click());
  await page.keyboard.down("Control");
  await page.keyboard.press("a");
  await page.keyboard.up("Control");
}
