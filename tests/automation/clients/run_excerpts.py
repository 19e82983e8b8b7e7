"""Runs the VBScript of the guide's pages: run_excerpts.py COMMAND... The command gets the name of a script.

What an excerpt takes from elsewhere is made before it; C:\\Lavori is a folder of its own.
"""

import pathlib
import re
import subprocess
import sys
import tempfile

import run_compose

GUIDE = pathlib.Path(__file__).resolve().parents[3] / "docs/guide"

# How to make what an excerpt takes from elsewhere, once there is a factory.
FACTORY = 'Set fabbrica = CreateObject("OrvaneDocumenti.VqDocumenti")\n'
MADE = {
    "stampa": 'Set stampa = fabbrica.NuovoDocumentoStampa\nstampa.Inizializza "1", "C:\\Lavori"\n'
              'Set altra = fabbrica.NuovoDocumentoStampa\naltra.Inizializza "124", "C:\\Lavori", True\n'
              'stampa.Collegati.Add altra',
    "email": 'Set email = fabbrica.NuovoDocumentoEmail\nemail.Inizializza "1", "C:\\Lavori"\n'
             'email.Allegati.Add "C:\\Lavori", "condizioni.pdf"',
}
END = "end of the excerpt"


def excerpts():
    for page in sorted(GUIDE.glob("*.md")):
        for code in re.findall(r"^```vb\n(.*?)^```$", page.read_text(encoding="utf-8"), re.MULTILINE | re.DOTALL):
            yield page.name, code


def script(code, folder):
    made = [text + "\n" for name, text in MADE.items() if f"Set {name} =" not in code and name + "." in code]
    factory = "" if "Set fabbrica =" in code else FACTORY
    text = f'{factory}{"".join(made)}{code}WScript.Echo "{END}"\n'
    return text.replace("C:\\Lavori", run_compose.windows_name(folder))


def fault(command, code):
    """What is wrong with the excerpt: nothing if it runs to its end."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name).resolve()
        file = folder / "excerpt.vbs"
        file.write_text(script(code, folder), encoding="utf-8", newline="\r\n")
        result = subprocess.run([*command, run_compose.windows_name(file)], capture_output=True, timeout=600, check=False)
    output = result.stdout.decode("utf-8", "replace").split()
    return None if output[-4:] == END.split() else f"{result.returncode} {output} {result.stderr.decode(errors='replace')}"


def main():
    command, found = sys.argv[1:], list(excerpts())
    if not fault(command, "fabbrica.Nessuno\n"):
        sys.exit("a wrong excerpt is not noticed")
    outcomes = [(page, code, fault(command, code)) for page, code in found]
    wrong = [outcome for outcome in outcomes if outcome[2]]
    for page, code, what in wrong:
        print(f"{page}:\n{code}does not run to its end: {what}")
    print(f"{len(found) - len(wrong)} of {len(found)} excerpts ran")
    return 1 if wrong or not found else 0


if __name__ == "__main__":
    sys.exit(main())
