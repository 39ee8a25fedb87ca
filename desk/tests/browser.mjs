// The desk in a real browser, from its file on disk, with everything that the browser asks for recorded.

import { existsSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join, resolve } from "node:path";
import { pathToFileURL } from "node:url";
import puppeteer from "puppeteer-core";

/** Where Firefox keeps what is saved: it is told once, when it starts. */
const firefoxFolder = join(tmpdir(), `desk-firefox-${process.pid}`);

export const root = resolve(import.meta.dirname ?? ".", "../..");
export const deskFile = process.env.DESK_FILE ?? join(root, "build/desk/pedigreewatch-desk.html");
const isFirefox = process.env.DESK_BROWSER === "firefox";

export function startBrowser() {
  return isFirefox
    ? puppeteer.launch({ browser: "firefox", executablePath: "/usr/bin/firefox-esr", headless: true,
      extraPrefsFirefox: { "browser.download.folderList": 2, "browser.download.dir": firefoxFolder,
        "browser.download.always_ask_before_handling_new_types": false } })
    : puppeteer.launch({ executablePath: "/usr/bin/chromium", headless: true, protocolTimeout: 600_000,
      args: ["--no-sandbox", "--disable-dev-shm-usage", "--lang=en"] });
}

/** A new page with the desk. `requests` are addresses that it asked for besides itself and its own worker. */
export async function openDesk(browser, { language = "en" } = {}) {
  const folder = mkdtempSync(join(tmpdir(), "desk-"));
  const context = await browser.createBrowserContext(isFirefox ? {} : { downloadBehavior: { policy: "allow", downloadPath: folder } });
  const page = await context.newPage();
  await page.setViewport({ width: 1100, height: 900 });
  const requests = [], problems = [], address = pathToFileURL(deskFile).href;
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
  await page.click(language === "nl" ? "#dutch" : "#english");
  await idle(page);
  const close = async () => {
    await context.close();
    rmSync(folder, { recursive: true, force: true });
  };
  return { page, folder, requests, problems, close };
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
  for (let waited = 0; waited < 600 && !existsSync(file); ++waited) await new Promise((done) => setTimeout(done, 100));
  if (!existsSync(file)) throw new Error(`${name} was not saved`);
  return readFileSync(file);
}

export function writeInput(desk, name, content) {
  const file = join(desk.folder, `in-${Math.random().toString(36).slice(2)}-${name}`);
  writeFileSync(file, content);
  return file;
}
