// The page of `pedigreewatch-tools page` alone, as its readers meet it: in a browser from a file on disk, on a telephone,
// and printed on A4. Both examples are made pages of, so that both languages are looked at.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { cpSync, mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, before, describe, test } from "node:test";
import { isFirefox, openPage, root, startBrowser, violations } from "./browser.mjs";

const tools = process.env.PEDIGREEWATCH_TOOLS ?? join(root, "build/release/pedigreewatch-tools");
const pages = [["en", "moorland-en", "moorland.html"], ["nl", "heide-nl", "heide.html"]];
const millimetre = 96 / 25.4, paper = { width: 210, height: 297, margin: 11 };

let browser, folder;
before(async () => {
  folder = mkdtempSync(join(tmpdir(), "page-"));
  for (const [, example] of pages) {
    cpSync(join(root, "examples", example), join(folder, example), { recursive: true });
    execFileSync(tools, ["page"], { cwd: join(folder, example), stdio: "ignore" });
  }
  browser = await startBrowser();
});
after(async () => {
  await browser.close();
  rmSync(folder, { recursive: true, force: true });
});

/** Runs `action` on the page in a window of this width; the page must ask for nothing and meet no problem. */
async function withPage([, example, name], width, action) {
  const opened = await openPage(browser, join(folder, example, name), { width, height: 844 });
  try {
    await action(opened.page);
    assert.deepEqual(opened.requests, [], "the page has asked for something");
    assert.deepEqual(opened.problems, [], "the browser has met problems");
  } finally {
    await opened.close();
  }
}

/** Texts and lines that stick out of their picture, where a browser cuts them. */
const cutInPictures = (page) => page.$$eval(".plot svg", (pictures) => pictures.flatMap((picture) => {
  const frame = picture.getBoundingClientRect(), slack = 0.5;
  return [...picture.querySelectorAll("text, path")].filter((mark) => {
    const place = mark.getBoundingClientRect();
    return place.width + place.height > 0 && (place.left < frame.left - slack || place.right > frame.right + slack
      || place.top < frame.top - slack || place.bottom > frame.bottom + slack);
  }).map((mark) => `${picture.getAttribute("aria-labelledby") ?? picture.textContent.slice(0, 30)}: ${mark.outerHTML.slice(0, 90)}`);
}));

for (const example of pages) {
  const [language] = example;
  describe(`ThePageIn_${language}`, () => {
    test("is accessible, in a light and in a dark window", () => withPage(example, 1100, async (page) => {
      assert.equal(await page.$eval("html", (element) => element.lang), language);
      assert.ok((await page.$$("figure svg")).length > 10);
      assert.deepEqual(await violations(page), []);
      if (isFirefox) return; // does not take another colour scheme by this protocol
      await page.emulateMediaFeatures([{ name: "prefers-color-scheme", value: "dark" }]);
      assert.deepEqual(await violations(page), []);
    }));

    test("tells the figures of a year to keyboard and mouse", () => withPage(example, 1100, async (page) => {
      const chart = await page.$("figure[data-n] .plot");
      const told = () => page.$eval("figure[data-n] output", (element) => element.textContent);
      const row = (place) => page.$eval("figure[data-n]", (figure, at) => [...figure.querySelectorAll("tbody tr")].at(at)
        .firstElementChild.textContent.trim(), place);
      await chart.focus();
      await page.keyboard.press("Home");
      assert.ok((await told()).includes(await row(0)));
      await page.keyboard.press("ArrowRight");
      assert.ok((await told()).includes(await row(1)));
      await page.keyboard.press("End");
      assert.ok((await told()).includes(await row(-1)));
      await chart.scrollIntoView();
      const place = await chart.boundingBox();
      await page.mouse.move(place.x + place.width / 2, place.y + place.height / 2);
      assert.ok(!(await told()).includes(await row(-1)));
    }));

    for (const width of [1100, 390]) {
      test(`cuts no chart in a window of ${width} pixels`, () => withPage(example, width, async (page) => {
        assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth), "the page is wider than the window");
        assert.deepEqual(await cutInPictures(page), []);
        // What is wider than the window can be moved to its end, also by keyboard.
        const stuck = await page.$$eval(".plot, .scroll", (boxes) => boxes.filter((box) => {
          if (box.checkVisibility && !box.checkVisibility()) return false;
          if (box.scrollWidth <= box.clientWidth) return false;
          // Charts begin at their right end, with the newest years, and are moved to the left.
          const way = getComputedStyle(box).direction === "rtl" ? -1 : 1;
          if (box.scrollLeft !== 0) return true;
          box.scrollLeft = way * box.scrollWidth;
          return box.tabIndex !== 0 || Math.abs(way * box.scrollLeft + box.clientWidth - box.scrollWidth) > 1;
        }).map((box) => box.outerHTML.slice(0, 120)));
        assert.deepEqual(stuck, []);
      }));
    }

    test("is printed on A4 without a chart that is cut", () => withPage(example, Math.floor((paper.width - 2 * paper.margin) * millimetre),
      async (page) => {
        const file = join(folder, `${language}.pdf`);
        const edges = Object.fromEntries(["top", "right", "bottom", "left"].map((edge) => [edge, `${paper.margin}mm`]));
        // Firefox, driven like this, does not take the paper from the page.
        const given = isFirefox ? { format: "A4", margin: edges } : { preferCSSPageSize: true };
        writeFileSync(file, await page.pdf({ ...given, printBackground: true }));
        assert.match(execFileSync("pdfinfo", [file], { encoding: "utf8" }), /Page size: .* pts \(A4\)/);
        const words = [...execFileSync("pdftotext", ["-bbox", file, "-"], { encoding: "utf8" })
          .matchAll(/<word xMin="([-\d.]+)" yMin="([-\d.]+)" xMax="([-\d.]+)" yMax="([-\d.]+)">/g)].map((found) => found.slice(1).map(Number));
        const points = 72 / 25.4, edge = paper.margin * points - 1;
        const outside = words.filter(([left, top, right, bottom]) => left < edge || top < edge
          || right > paper.width * points - edge || bottom > paper.height * points - edge);
        assert.ok(words.length > 1000);
        assert.deepEqual(outside, [], "words in the margin or beyond the paper");
        if (isFirefox) return; // shows a page as it is printed by no other way than printing it
        await page.emulateMediaType("print");
        assert.deepEqual(await cutInPictures(page), []);
        const tooLarge = await page.$$eval("figure", (figures, width, height) => figures.filter((figure) => {
          const place = figure.getBoundingClientRect();
          return place.right > width || place.height > height || getComputedStyle(figure).breakInside !== "avoid";
        }).map((figure) => figure.textContent.slice(0, 60)), await page.evaluate(() => innerWidth), (paper.height - 2 * paper.margin) * millimetre);
        assert.deepEqual(tooLarge, []);
        const printed = execFileSync("pdftotext", [file, "-"], { encoding: "utf8" }).replace(/\s+/g, " ");
        const missing = (await page.$$eval("figure h3", (titles) => titles
          .filter((title) => title.closest("details:not([open])") === null) // what is folded away is not printed
          .map((title) => title.textContent.trim().replace(/\s+/g, " "))))
          .filter((title) => !printed.includes(title));
        assert.deepEqual(missing, [], "titles of charts that are not on the paper");
      }));
  });
}
