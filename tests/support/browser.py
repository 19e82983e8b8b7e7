"""A headless browser that tests and pictures drive: pages, windows of any size, printing. Needs chromium and nothing
else; commands go through a pair of pipes as JSON texts that end with NUL."""

import base64
import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

PROGRAM = shutil.which("chromium") or shutil.which("google-chrome")
MISSING = "no browser: scripts/install-tools native installs chromium"
_READS, _WRITES = 3, 4  # the numbers of its pipes, which the browser prescribes


def needed():
    """Skips the file of tests that calls it where there is no browser; ctest knows that by what is printed."""
    if not PROGRAM:
        print(f"Skipped: {MISSING}")
        raise unittest.SkipTest(MISSING)


class Browser:
    """One page of a browser of its own, which ends with the block: with Browser() as browser."""

    def __enter__(self):
        self._folder = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        try:
            self._start()
        except BaseException:
            self._end()
            raise
        return self

    def __exit__(self, *_):
        try:
            self._send("Browser.close", of_page=False)
            self._process.wait(timeout=600)
        finally:
            self._end()

    def _end(self):
        self._process.kill()
        self._process.wait()
        self._commands.close()
        self._answers.close()
        self._folder.cleanup()

    def _start(self):
        commands, answers = os.pipe(), os.pipe()
        self._process = subprocess.Popen(
            ["bash", "-c", f'exec "$@" {_READS}<&{commands[0]} {_WRITES}>&{answers[1]}', "browser", PROGRAM,
             "--headless", "--no-sandbox", "--disable-gpu", "--lang=en", "--hide-scrollbars", "--remote-debugging-pipe",
             "--font-render-hinting=none", f"--user-data-dir={self._folder.name}", "about:blank"],
            pass_fds=[commands[0], answers[1]], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(commands[0]), os.close(answers[1])
        self._commands, self._answers = os.fdopen(commands[1], "wb"), os.fdopen(answers[0], "rb")
        self._number, self._rest, self._session = 0, b"", None
        target = self._send("Target.createTarget", of_page=False, url="about:blank")["targetId"]
        self._session = self._send("Target.attachToTarget", of_page=False, targetId=target, flatten=True)["sessionId"]
        self._send("Page.enable")

    def _send(self, method, of_page=True, **parameters):
        self._number += 1
        message = {"id": self._number, "method": method, "params": parameters}
        if of_page:
            message["sessionId"] = self._session
        self._commands.write(json.dumps(message).encode() + b"\0")
        self._commands.flush()
        return self._wait(lambda answer: answer.get("id") == self._number)

    def _wait(self, wanted):
        while True:
            answer = self._next()
            if wanted(answer):
                if "error" in answer:
                    raise RuntimeError(answer["error"]["message"])
                return answer.get("result")

    def _next(self):
        while b"\0" not in self._rest:
            more = os.read(self._answers.fileno(), 1 << 16)
            if not more:
                raise RuntimeError("the browser has ended")
            self._rest += more
        answer, self._rest = self._rest.split(b"\0", 1)
        return json.loads(answer)

    def open(self, path):
        """Opens a file and waits until it is loaded, scripts included."""
        answer = self._send("Page.navigate", url=pathlib.Path(path).resolve().as_uri())
        if "errorText" in answer:
            raise RuntimeError(f"{path}: {answer['errorText']}")
        self._wait(lambda event: event.get("method") == "Page.loadEventFired")

    def window(self, width, height, phone=False):
        self._send("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=phone)

    def medium(self, name="", dark=False):
        """"print" for the look on paper, "" for the screen's."""
        scheme = {"name": "prefers-color-scheme", "value": "dark" if dark else "light"}
        self._send("Emulation.setEmulatedMedia", media=name, features=[scheme])

    def run(self, script):
        """The value of a JavaScript expression."""
        result = self._send("Runtime.evaluate", expression=script, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in result:
            raise RuntimeError(result["exceptionDetails"]["exception"].get("description", script))
        return result["result"].get("value")

    def picture(self, path, whole=False):
        """Writes the window as PNG, or the whole page."""
        shot = self._send("Page.captureScreenshot", format="png", captureBeyondViewport=whole)
        pathlib.Path(path).write_bytes(base64.b64decode(shot["data"]))

    def paper(self):
        """What printing yields, a PDF."""
        return base64.b64decode(self._send("Page.printToPDF", printBackground=True)["data"])
