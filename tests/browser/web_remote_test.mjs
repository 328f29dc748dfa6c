// The web remote in a real browser: Debian's chromium, driven by
// playwright-core, against a running desk. The page asks for the PIN the
// desk shows, takes it, and GO pressed on the page plays the next cue: the
// page shows it, and so do the desk's own values and its DMX frame, read
// back through the desk's command port.
//
//   node web_remote_test.mjs PAGE_URL COMMAND_PORT SCREENSHOT.png
// Exit 0 pass, 1 fail, 77 when the browser cannot start here.

import net from "node:net";
import { chromium } from "playwright-core";

const [url, commandPort, screenshot] = process.argv.slice(2);

function fail(why) {
  console.log("FAIL: " + why);
  process.exit(1);
}

// One command of the command language, answered with one line.
function ask(command) {
  return new Promise((resolve, reject) => {
    const s = net.connect(Number(commandPort), "127.0.0.1");
    let got = "";
    s.setTimeout(5000, () => reject(new Error("no answer to " + command)));
    s.on("data", (d) => {
      got += d;
      if (got.includes("\n")) {
        s.end();
        resolve(got.split("\n")[0]);
      }
    });
    s.on("error", reject);
    s.write(command + "\n");
  });
}

async function until(what, test, ms = 10000) {
  const end = Date.now() + ms;
  for (;;) {
    const v = await test();
    if (v) return v;
    if (Date.now() > end) fail(what);
    await new Promise((r) => setTimeout(r, 50));
  }
}

let browser;
try {
  browser = await chromium.launch({
    executablePath: "/usr/bin/chromium",
    args: ["--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
           "--disable-background-networking", "--disable-component-update", "--disable-sync"],
  });
} catch (e) {
  console.log("SKIP: chromium cannot start here: " + String(e.message).split("\n")[0]);
  process.exit(77);
}

try {
  const page = await browser.newPage({ viewport: { width: 390, height: 844 }, deviceScaleFactor: 2 });
  await page.goto(url);

  // Locked: the page asks for the PIN and a wrong one is told.
  await page.waitForSelector("#pinbox.shown", { timeout: 5000 });
  const pin = (await ask("get WebPin")).replace(/^WebPin = /, "");
  if (!/^\d{4}$/.test(pin)) fail("the desk shows no PIN: " + pin);
  await page.fill("#pin", pin === "0000" ? "1111" : "0000");
  await page.click("#pinok");
  await until("a wrong PIN is not told", async () => (await page.textContent("#pinmsg")) === "Wrong PIN");
  await page.fill("#pin", pin);
  await page.click("#pinok");
  await page.waitForSelector("#pinbox", { state: "hidden", timeout: 5000 });
  await until("no state reached the page", async () => (await page.textContent("#nextNum")) === "1");
  if ((await page.textContent("#nextName")) !== "House to half") fail("the next cue's name is not shown");

  // GO on the page: how long until the page shows the fade, measured in the page.
  const latency = await page.evaluate(() => new Promise((resolve) => {
    const go = document.getElementById("go");
    const t0 = performance.now();
    new MutationObserver((_, o) => {
      if (document.getElementById("fFade").classList.contains("lit")) {
        o.disconnect();
        resolve(performance.now() - t0);
      }
    }).observe(document.getElementById("fFade"), { attributes: true });
    go.click();
  }));
  console.log(`GO to the fade shown on the page: ${latency.toFixed(1)} ms`);
  if (latency > 100) fail(`the page showed the fade ${latency} ms after GO`);

  // The fade runs on the page's bar, and ends with cue 1 on stage, everywhere.
  await until("the fade bar never moved", async () =>
    parseFloat(await page.evaluate(() => document.getElementById("progress").style.width)) > 0);
  await until("the page never showed cue 1 on stage", async () => (await page.textContent("#nowNum")) === "1");
  if ((await page.textContent("#nowName")) !== "House to half") fail("the stage cue's name is not shown");
  if ((await page.textContent("#nextNum")) !== "2") fail("the next cue is not 2 after GO");
  const stage = await ask("get STAGEMem");
  if (stage !== "STAGEMem = 1") fail("the desk's Stage panel shows " + stage);
  await until("the frame never carried cue 1", async () => (await ask("dmx 1 1")) === "DMX 1-1: 128");

  // The command line's keypad and the grand master reach the desk as well.
  for (const k of ["3", "0", "a", "ff", "ENTER"]) await page.click(`#keys button[data-key="${k}"]`);
  await until("the keypad's command never reached the frame", async () => (await ask("dmx 30 30")) === "DMX 30-30: 255");
  await page.fill("#chan", "40");
  await page.click("#check");
  await until("channel check never lit channel 40", async () => (await ask("dmx 40 40")) === "DMX 40-40: 255");
  await page.click("#nextCh");
  await until("channel check never stepped to 41", async () => (await ask("dmx 40 41")) === "DMX 40-41: 0 255");
  await page.click("#checkOff");
  await until("channel check left channel 41 up", async () => (await ask("dmx 41 41")) === "DMX 41-41: 0");

  // The picture for the manual: cue 1 on stage, the fade to cue 2 under way.
  await page.click("#go");
  await until("the fade to cue 2 never moved", async () =>
    parseFloat(await page.evaluate(() => document.getElementById("progress").style.width)) > 40);
  if ((await page.textContent("#nextName")) !== "Dawn") fail("the fade to cue 2 does not name it");
  if (screenshot) await page.screenshot({ path: screenshot });
  console.log("PASS");
} catch (e) {
  fail(e.message);
} finally {
  await browser.close();
}
