#!/usr/bin/python3
"""Write the workbook Tab/Almagest.xls: Ptolemy's theory of the Sun in formulas, through LibreOffice.

usage: make_almagest.py TAB_FOLDER            (data/Tab; package libreoffice-calc-nogui)

Almagest III: mean motion 0;59,8,17,13,12,31 degrees a day, mean longitude 330;45 at the epoch (noon of 1 Thoth of the
first year of Nabonassar), apogee 65;30 fixed, eccentricity 2;30 of 60.  The date is Egyptian: year of Nabonassar,
month, day, hours from noon, in B6, C6, D6, E6 of the first sheet; the longitude of the Sun appears in N20 of the
second.  The cells in which other bodies would stand say that the workbook has them not.
"""
import os
import subprocess
import sys
import tempfile
from xml.sax.saxutils import quoteattr, escape

NOTHING = "нет в этой книге"
SUN = "$'Солнце'"
SHEETS = [
    ("Дата", {
        "A1": "Альмагест, теория Солнца (книга III). Книга сделана программой tools/make_almagest.py",
        "A3": "Дата по египетскому календарю, эра Набонассара; часы от полудня",
        "B5": "год", "C5": "месяц", "D5": "день", "E5": "часы",
        "B6": 1, "C6": 1, "D6": 1, "E6": 0,
        "A8": "дней от эпохи", "B8": "=([.B6]-1)*365+([.C6]-1)*30+([.D6]-1)+[.E6]/24",
        "A9": "долгота Солнца, град", "B9": f"=[{SUN}.N20]",
    }),
    ("Солнце", {
        "A1": "Солнце", "C2": "град", "D2": "'", "E2": "''", "F2": "3", "G2": "4", "H2": "5", "I2": "6", "J2": "в градусах",
        "A3": "среднее движение за день", "C3": 0, "D3": 59, "E3": 8, "F3": 17, "G3": 13, "H3": 12, "I3": 31,
        "J3": "=[.C3]+[.D3]/60+[.E3]/60^2+[.F3]/60^3+[.G3]/60^4+[.H3]/60^5+[.I3]/60^6",
        "A4": "средняя долгота в эпоху", "C4": 330, "D4": 45, "J4": "=[.C4]+[.D4]/60",
        "A5": "апогей", "C5": 65, "D5": 30, "J5": "=[.C5]+[.D5]/60",
        "A6": "эксцентриситет в частях радиуса 60", "C6": 2, "D6": 30, "J6": "=[.C6]+[.D6]/60",
        "A10": "средняя долгота", "J10": "=MOD([.J4]+[.J3]*[$'Дата'.B8];360)",
        "A11": "от апогея", "J11": "=MOD([.J10]-[.J5];360)",
        "A12": "уравнение", "J12": "=DEGREES(ATAN([.J6]*SIN(RADIANS([.J11]))/(60+[.J6]*COS(RADIANS([.J11])))))",
        "A20": "долгота Солнца", "N20": "=MOD([.J10]-[.J12];360)",
    }),
    ("Луна", {"A1": NOTHING, "X36": NOTHING, "X43": NOTHING}),
    ("4", {"A1": NOTHING}),
    ("5", {"A1": NOTHING}),
    ("Марс", {"A1": NOTHING, "AD57": NOTHING, "AF30": NOTHING}),
    ("Венера", {"A1": NOTHING, "AD61": NOTHING, "AD36": NOTHING}),
    ("Меркурий", {"A1": NOTHING, "AD61": NOTHING, "AD36": NOTHING}),
]


def place(cell):
    letters = cell.rstrip("0123456789")
    column = 0
    for letter in letters:
        column = column * 26 + ord(letter) - ord("A") + 1
    return int(cell[len(letters):]), column


def cell_xml(content):
    if isinstance(content, str) and content.startswith("="):
        return f"<table:table-cell table:formula={quoteattr('of:' + content)}/>"
    if isinstance(content, str):
        return f'<table:table-cell office:value-type="string"><text:p>{escape(content)}</text:p></table:table-cell>'
    return f'<table:table-cell office:value-type="float" office:value="{content}"/>'


def sheet_xml(name, cells):
    rows = {}
    for cell, content in cells.items():
        row, column = place(cell)
        rows.setdefault(row, {})[column] = content
    xml = f"<table:table table:name={quoteattr(name)}>"
    for row in range(1, max(rows) + 1):
        columns = rows.get(row, {})
        xml += "<table:table-row>"
        for column in range(1, max(columns, default=1) + 1):
            xml += cell_xml(columns[column]) if column in columns else "<table:table-cell/>"
        xml += "</table:table-row>"
    return xml + "</table:table>"


def main(folder):
    space = "urn:oasis:names:tc:opendocument:xmlns:"
    xml = ('<?xml version="1.0" encoding="UTF-8"?>\n<office:document'
           + "".join(f' xmlns:{short}="{space}{short if short != "of" else "of"}:1.{2 if short == "of" else 0}"'
                     for short in ("office", "table", "text", "of"))
           + ' office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.spreadsheet">'
           + "<office:body><office:spreadsheet>" + "".join(sheet_xml(*sheet) for sheet in SHEETS)
           + "</office:spreadsheet></office:body></office:document>\n")
    with tempfile.TemporaryDirectory() as work:
        source = os.path.join(work, "Almagest.fods")
        with open(source, "w", encoding="utf-8") as file:
            file.write(xml)
        subprocess.run(["soffice", f"-env:UserInstallation=file://{work}/profile", "--headless", "--convert-to",
                        "xls:MS Excel 97", "--outdir", folder, source], check=True)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__.split("\n\n")[1])
    main(sys.argv[1])
