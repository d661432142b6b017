"""A headless Chromium, driven over its own protocol (DevTools) through two pipes: JSON messages, a
null byte behind each. So that neither a driver nor a library is needed."""

import json
import os
import select
import shutil
import subprocess
import tempfile
import time


class Chromium:
    """With one page. What that page says and asks for is collected: `complaints`, `requests`."""

    PATIENCE = 60  # seconds

    def __init__(self):
        self.complaints, self.requests, self.loads = [], [], 0
        self._next, self._answers, self._unread = 0, {}, b""
        self._profile = tempfile.mkdtemp()
        commands, self._out = os.pipe()
        self._in, answers = os.pipe()
        # Pipes are its descriptors 3 and 4. It has no sandbox for root.
        options = ["--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                   "--no-first-run", "--remote-debugging-pipe", "--window-size=1400,1000",
                   f"--user-data-dir={self._profile}", "about:blank"]
        start = f'exec chromium "$@" 3<&{commands} 4>&{answers}'
        self._log = open(os.path.join(self._profile, "log"), "w+b")
        self._process = subprocess.Popen(
            ["bash", "-c", start, "chromium", *options], stdin=subprocess.DEVNULL,
            stdout=self._log, stderr=self._log, pass_fds=(commands, answers))
        os.close(commands)
        os.close(answers)
        self._session = None
        self._session = self._attached()
        for domain in ("Page", "Runtime", "Log", "Network", "DOM"):
            self.call(f"{domain}.enable")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._process.terminate()
        try:
            self._process.wait(10)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        self._log.close()
        shutil.rmtree(self._profile, ignore_errors=True)

    def call(self, method, **parameters):
        """The result of a command; raises RuntimeError where it is refused."""
        self._next += 1
        number = self._next
        message = {"id": number, "method": method, "params": parameters}
        if self._session:
            message["sessionId"] = self._session
        os.write(self._out, json.dumps(message).encode() + b"\0")
        self._read_until(lambda: number in self._answers)
        answer = self._answers.pop(number)
        if "error" in answer:
            raise RuntimeError(f"{method}: {answer['error']['message']}")
        return answer["result"]

    def open(self, file):
        """Loads a file as a page, with nothing collected before."""
        self.complaints, self.requests = [], []
        loads = self.loads
        self.call("Page.navigate", url=f"file://{file}")
        self._read_until(lambda: self.loads > loads)

    def value(self, expression):
        """Of JavaScript in the page, which its policy does not bind."""
        result = self.call("Runtime.evaluate", expression=expression, returnByValue=True,
                           awaitPromise=True)
        if "exceptionDetails" in result:
            raise RuntimeError(f"{expression}: {result['exceptionDetails']}")
        return result["result"].get("value")

    def press(self, key):
        """A key, as from a keyboard."""
        codes = {"ArrowLeft": 37, "ArrowRight": 39, "Home": 36, "End": 35, "Tab": 9, "Enter": 13}
        text = {"text": "\r"} if key == "Enter" else {}
        for kind in ("keyDown", "keyUp"):
            self.call("Input.dispatchKeyEvent", type=kind, key=key, code=key,
                      windowsVirtualKeyCode=codes[key], **text)

    def click(self, x, y):
        """The left button, at a point of the window."""
        for kind in ("mousePressed", "mouseReleased"):
            self.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left", clickCount=1)

    def picture(self, file):
        """Of the whole page, as PNG, for people to look at."""
        import base64
        shot = self.call("Page.captureScreenshot", captureBeyondViewport=True)
        with open(file, "wb") as out:
            out.write(base64.b64decode(shot["data"]))

    def _attached(self):
        pages = [t for t in self.call("Target.getTargets")["targetInfos"] if t["type"] == "page"]
        page = pages[0]["targetId"] if pages else self.call(
            "Target.createTarget", url="about:blank")["targetId"]
        return self.call("Target.attachToTarget", targetId=page, flatten=True)["sessionId"]

    def _read_until(self, ready):
        deadline = time.monotonic() + self.PATIENCE
        while not ready():
            left = deadline - time.monotonic()
            if left <= 0 or not select.select([self._in], [], [], left)[0]:
                raise RuntimeError("chromium does not answer")
            data = os.read(self._in, 1 << 20)
            if not data:
                self._log.seek(0)
                raise RuntimeError("chromium ended: " + self._log.read().decode(errors="replace"))
            self._take(data)

    def _take(self, data):
        *messages, self._unread = (self._unread + data).split(b"\0")
        for message in map(json.loads, messages):
            if "id" in message:
                self._answers[message["id"]] = message
            else:
                self._notice(message["method"], message["params"])

    def _notice(self, event, about):
        if event == "Page.loadEventFired":
            self.loads += 1
        elif event == "Network.requestWillBeSent":
            self.requests.append(about["request"]["url"])
        elif event in ("Runtime.consoleAPICalled", "Runtime.exceptionThrown", "Log.entryAdded",
                       "Page.javascriptDialogOpening"):
            self.complaints.append(f"{event}: {json.dumps(about)[:2000]}")
