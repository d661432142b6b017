"""Pages that tpn writes, with what they ought to show: its own JSON of the same answer."""

import json
import os
import subprocess

# Names that would do something, were they HTML, script or style anywhere.
HOSTILE = [
    "<script>window.hostile = 1</script>",
    "</style><script>window.hostile = 1</script>",
    "\"'><img src=x onerror='window.hostile = 1'>",
    "]]></script><script>window.hostile = 1</script>",
    "--><svg onload='window.hostile = 1'>&lt;&amp;",
    "</title></text></svg><b>loud</b>",
    "$(window.hostile=1)`${window.hostile=1}`",
]


class Page:
    """The file that tpn wrote, and the run that it is about (None where there is none)."""

    def __init__(self, tpn, folder, name, arguments):
        self.file = os.path.join(folder, name + ".html")
        done = subprocess.run([tpn, *arguments, "--json", "--html", self.file], cwd=folder,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=300)
        if not os.path.exists(self.file):
            raise RuntimeError(f"tpn {arguments} wrote no page: {done.stderr}")
        told = json.loads(done.stdout)
        self.answer = told.get("answer")
        self.run = told if "states" in told else told.get("run")


def written(folder, name, text):
    with open(os.path.join(folder, name), "w") as file:
        file.write(text)


def braced(name):
    return "{" + "".join("\\" + c if c in "\\{}" else c for c in name) + "}"


def hostile_network():
    """Two processes that hand something to and fro, and names that nobody should give."""
    names = [braced(name) for name in HOSTILE]
    return "\n".join([
        HOSTILE[0] + HOSTILE[5], "transitions", "1 0 2", "2 1 2", "endtran",
        "process", "1 0 1", "2 1 0", "valuation", "1 1", "endval", "end",
        "process", "1 0 1", "2 1 0", "valuation", "endval", "end", "end",
        "names", f"process 1 {names[0]}", f"process 2 {names[1]}",
        f"location 1 0 {names[2]}", f"location 1 1 {names[3]}",
        f"location 2 0 {names[4]}", f"location 2 1 {names[5]}",
        f"transition 1 {names[6]}", f"transition 2 {names[2]}", f"proposition 1 {names[3]}", ""])
