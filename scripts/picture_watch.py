"""The picture of `orvane watch`: what the program writes to a terminal while jobs change, drawn as SVG."""

import datetime
import fcntl
import html
import os
import pty
import re
import struct
import subprocess
import termios

from picture_jobs import NOW

COLUMNS = 132
CELL, LINE, MARGIN = 8.4, 20, 16
STYLE = ("text { font: 14px ui-monospace, 'DejaVu Sans Mono', Consolas, monospace; fill: #d7dce2; white-space: pre; } "
         ".c1 { font-weight: 600; fill: #ffffff; } .c2 { fill: #8b95a3; } .c31 { fill: #ff8a80; } .c32 { fill: #7fd1a0; } "
         ".c33 { fill: #f0c060; } .prompt { fill: #8ab4f8; }")


def before(minutes):
    return NOW - datetime.timedelta(minutes=minutes, seconds=-20)


def compose(jobs):
    """What is in the folder when one begins to watch."""
    jobs.job(4201, "stampa", before(26), 3)
    jobs.job(4202, "fax", before(21), 4)
    jobs.job(4203, "stampa", before(12), 1)
    jobs.job(4204, "email", before(9), 3)
    jobs.job(4205, "fax", before(6), 5, rejected=True)
    jobs.job(4206, "email", before(2), 1)
    (jobs.folder / "4206.vqe").rename(jobs.folder.parent / "4206.vqe")


def put_in(jobs, name):
    """A job that is composed elsewhere comes in whole, so that the clock has no part in how many changes are seen."""
    (jobs.folder.parent / name).rename(jobs.folder / name)


def changes(jobs):
    """What happens then, one line of the program a call."""
    def change(name, assignment):
        jobs.run(NOW, "set", str(jobs.folder / name), assignment)

    yield lambda: change("4203.vqs", "Coda.Codice=vdcs_InStampa")
    yield lambda: change("4202.vqf", "Proprieta.Esito.Codice=vde_Ok")
    yield lambda: change("4202.vqf", "Coda.Codice=vdcf_Trasmesso")
    yield lambda: put_in(jobs, "4206.vqe")
    yield lambda: change("4203.vqs", "Proprieta.Errore.Descrizione=Carta esaurita nel cassetto 2")
    yield lambda: change("4203.vqs", "Coda.Codice=vdcs_Respinto")
    yield lambda: (jobs.folder / "4201.vqs").unlink()


def terminal_output(jobs):
    """The lines that the program writes, with their colours."""
    compose(jobs)
    screen, terminal = pty.openpty()
    fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack("HHHH", 40, COLUMNS, 0, 0))
    program = subprocess.Popen(["faketime", "-f", f"@{NOW:%Y-%m-%d %H:%M:%S}", jobs.program, "watch", jobs.folder.name],
                               cwd=jobs.folder.parent, stdin=terminal, stdout=terminal, stderr=terminal,
                               env={**os.environ, "TZ": "UTC", "TERM": "xterm", "FAKETIME_DONT_FAKE_MONOTONIC": "1"})
    os.close(terminal)
    try:
        lines = read_lines(screen, 1 + len(list(jobs.folder.glob("*.vq*"))))
        for change in changes(jobs):
            change()
            lines += read_lines(screen, 1)
    finally:
        program.terminate()
        program.wait()
        os.close(screen)
    return lines


def read_lines(screen, count):
    text = b""
    while text.count(b"\n") < count:
        text += os.read(screen, 4096)
    return text.decode("utf-8").splitlines()


def drawn_line(line, y):
    """A line of terminal output: colours begin and end as the escape sequences say."""
    spans, class_ = [], ""
    for part in re.split(r"(\x1b\[\d+m)", line):
        if part.startswith("\x1b"):
            class_ = "" if part == "\x1b[0m" else f"c{part[2:-1]}"
        elif part:
            spans.append(f'<tspan class="{class_}">{html.escape(part)}</tspan>' if class_ else html.escape(part))
    width = len(re.sub(r"\x1b\[\d+m", "", line)) * CELL
    return f'<text x="{MARGIN}" y="{y}" textLength="{width:.0f}" xml:space="preserve">{"".join(spans)}</text>\n'


def drawing(lines):
    command = f'<text x="{MARGIN}" y="{MARGIN + 14}"><tspan class="prompt">$</tspan> orvane watch lavori</text>\n'
    rows = "".join(drawn_line(line, MARGIN + 14 + LINE * (i + 1)) for i, line in enumerate(lines))
    width, height = COLUMNS * CELL + 2 * MARGIN, LINE * (len(lines) + 1) + 2 * MARGIN
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width:.0f} {height}" role="img">\n'
            f"<title>orvane watch</title>\n<style>{STYLE}</style>\n"
            f'<rect width="{width:.0f}" height="{height}" rx="8" fill="#171b21"/>\n{command}{rows}</svg>\n')
