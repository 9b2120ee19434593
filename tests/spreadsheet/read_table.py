#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""read_table.py FILE: what an independent reader finds in a workbook, as JSON.

{"sheets": [{"name", "rows": [[[type, value], ...], ...], "frozen", "filter", "titles", "widths",
             "formats"}], "title", "author"}
"""
import datetime
import json
import re
import sys
import zipfile
import xml.etree.ElementTree as ElementTree

import openpyxl


def typed(value):
    if isinstance(value, bool):
        return ["boolean", value]
    if isinstance(value, (int, float)):
        return ["number", value]
    if isinstance(value, datetime.datetime):
        return ["datetime", value.isoformat(sep=" ", timespec="milliseconds")]
    if isinstance(value, datetime.date):
        return ["datetime", value.isoformat() + " 00:00:00.000"]
    if isinstance(value, datetime.time):
        return ["time", value.isoformat(timespec="milliseconds")]
    return ["empty", None] if value is None else ["text", value]


def xlsx(path):
    book = openpyxl.load_workbook(path)
    sheets = []
    for sheet in book.worksheets:
        rows = []
        for row in sheet.iter_rows():
            rows.append([["link", cell.hyperlink.target or "#" + cell.hyperlink.location, cell.value]
                         if cell.hyperlink else typed(cell.value) for cell in row])
        sheets.append({
            "name": sheet.title, "rows": rows, "frozen": sheet.freeze_panes,
            "filter": sheet.auto_filter.ref, "titles": sheet.print_title_rows,
            "widths": [sheet.column_dimensions[openpyxl.utils.get_column_letter(i + 1)].width
                       for i in range(sheet.max_column)],
            "formats": [cell.number_format for cell in (list(sheet.iter_rows()) or [[]])[-1]]})
    return {"sheets": sheets, "title": book.properties.title, "author": book.properties.creator}


NAMES = {name: "{urn:oasis:names:tc:opendocument:xmlns:" + name + ":1.0}"
         for name in ("office", "table", "text")}


def ods_cell(cell):
    office = NAMES["office"]
    kind = cell.get(office + "value-type")
    text = "\n".join("".join(p.itertext()) for p in cell.findall(NAMES["text"] + "p"))
    link = next(cell.iter(NAMES["text"] + "a"), None)
    if link is not None:
        return ["link", link.get("{http://www.w3.org/1999/xlink}href"), "".join(link.itertext())]
    if kind is None:
        return ["empty", None]
    if kind == "boolean":
        return ["boolean", cell.get(office + "boolean-value") == "true"]
    if kind == "date":
        value = datetime.datetime.fromisoformat(cell.get(office + "date-value")[:23].ljust(23, "0")
                                                if "." in cell.get(office + "date-value")
                                                else cell.get(office + "date-value"))
        return ["datetime", value.isoformat(sep=" ", timespec="milliseconds")]
    if kind == "time":
        parts = re.match(r"PT(\d+)H(\d+)M([\d.]+)S", cell.get(office + "time-value"))
        return ["time", f"{parts[1]}:{parts[2]}:{float(parts[3]):06.3f}"]
    if kind == "string":
        return ["text", text]
    return ["number", float(cell.get(office + "value"))]


def ods(path):
    content = ElementTree.fromstring(zipfile.ZipFile(path).read("content.xml"))
    table = NAMES["table"]
    sheets = []
    for sheet in content.iter(table + "table"):
        rows = []
        for row in sheet.iter(table + "table-row"):
            cells = []
            for cell in row:
                cells += [ods_cell(cell)] * min(int(cell.get(table + "number-columns-repeated", 1)), 50)
            while cells and cells[-1][0] == "empty":
                cells.pop()
            rows += [cells] * min(int(row.get(table + "number-rows-repeated", 1)), 50)
        while rows and not rows[-1]:
            rows.pop()
        sheets.append({"name": sheet.get(table + "name"), "rows": rows})
    return {"sheets": sheets}


print(json.dumps(xlsx(sys.argv[1]) if sys.argv[1].endswith(".xlsx") else ods(sys.argv[1])))
