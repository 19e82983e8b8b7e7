"""Writes the page of `orvane report` as C++: embed.py OUTPUT.cpp. The page is page.html with page.css and page.js in
place of their marks and the English texts of english.json, cut where the data of a folder go."""

import pathlib
import sys

FOLDER = pathlib.Path(__file__).parent
LONGEST_LITERAL = 8000  # compilers need not take more than 65535 characters


def page():
    text = (FOLDER / "page.html").read_text(encoding="utf-8")
    for mark, name in [("@@style@@", "page.css"), ("@@english@@", "english.json"), ("@@script@@", "page.js")]:
        text = text.replace(mark, (FOLDER / name).read_text(encoding="utf-8"))
    return text.split("@@data@@")


def literal(text):
    pieces = [text[at:at + LONGEST_LITERAL] for at in range(0, len(text), LONGEST_LITERAL)]
    return "\n    ".join(f'R"~~~({piece})~~~"' for piece in pieces)


def main(output):
    begin, end = page()
    output.write_text('#include "cli/ReportPage.h"\n\nnamespace orvane::cli {\n\n'
                      f"const std::string_view kReportBegin =\n    {literal(begin)};\n\n"
                      f"const std::string_view kReportEnd =\n    {literal(end)};\n\n"
                      "}  // namespace orvane::cli\n", encoding="utf-8")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
