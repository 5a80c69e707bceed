#!/usr/bin/env python3
"""Makes the print templates of the bills (fixed/*.xls, demo/*.xls) from forms.py.

    ./make_templates.py            needs soffice (LibreOffice Calc) and fonts-wqy-microhei

Each form is written as a flat spreadsheet in XML and converted to the binary workbook that the program fills. The
workbooks are in the repository because the companion stores them in new account sets; run this again after a change
in forms.py and commit both. Made twice by the same LibreOffice they are the same bytes.

The plan of a page, which the program counts on: captions in row 16, two empty rows 17 and 18 between which the lines
of a bill are inserted and which then go, all tokens within rows 1 to 40 and columns 1 to 40, and on a sheet of its
own the word that asks for a barcode in the first column.
"""

import os
import shutil
import subprocess
import tempfile
from pathlib import Path
from xml.sax.saxutils import escape

from forms import FIGURES, MONEY, SHORT, USER_FORMS, WRAPPED, fixed_forms, row

CAPTION_ROW = 16
STYLE_SHEET = "样式分类设置"
PAPER, MARGIN = (210, 297), 10
ROOM = {True: 188, False: 275}  # millimetres for columns, by whether the paper stands upright
BODY, HEADING, STAND_IN = "宋体", "黑体", "WenQuanYi Micro Hei"
NAMESPACES = {"office": "office", "style": "style", "text": "text", "table": "table", "number": "datastyle",
              "fo": "xsl-fo-compatible", "svg": "svg-compatible"}
LINE_POINTS = 9.5

# Formats of the cells by name: text, figure as it comes, money.
DATA_STYLES = """
<number:text-style style:name="F-text"><number:text-content/></number:text-style>
<number:number-style style:name="F-figure"><number:number number:min-integer-digits="1"/></number:number-style>
<number:number-style style:name="F-money"><number:number number:decimal-places="2" number:min-decimal-places="2"
  number:min-integer-digits="1" number:grouping="true"/></number:number-style>"""

PAGE_NUMBER = """<text:p>第 <text:page-number>1</text:page-number> 页　共 <text:page-count>1</text:page-count> 页</text:p>"""
THIN = "0.5pt solid #000000"

# A workbook counts its column widths in digits of its font, so the font that stands for the Chinese ones must be known.
FONTS = "".join([
    '<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig><include>/etc/fonts/fonts.conf</include>',
    *(f'<alias binding="same"><family>{name}</family><prefer><family>{STAND_IN}</family></prefer></alias>'
      for name in (BODY, HEADING)), "</fontconfig>"])


class Styles:
    """The styles that a sheet has asked for, each written once."""

    def __init__(self):
        self._names = {}

    def of(self, family, properties):
        key = (family, properties)
        return self._names.setdefault(key, f"{family[6:8]}{len(self._names)}")

    def cell(self, *, align="start", size=10.5, bold=False, font=BODY, border="", shade="", data="text",
             underline=False, wraps=False):
        edges = f' fo:border="{border}"' if border else ""
        fit = 'fo:wrap-option="wrap"' if wraps else 'style:shrink-to-fit="true"'
        line = ' style:text-underline-style="solid" style:text-underline-type="double"' if underline else ""
        weight = ' fo:font-weight="bold" style:font-weight-asian="bold"' if bold else ""
        background = f' fo:background-color="{shade}"' if shade else ""
        return self.of("table-cell", (
            f'<style:table-cell-properties style:vertical-align="middle" fo:padding="0.4mm" {fit}{background}'
            f'{edges} style:text-align-source="fix"/>'
            f'<style:paragraph-properties fo:text-align="{align}"/>'
            f'<style:text-properties style:font-name="{font}" style:font-name-asian="{font}"'
            f' fo:font-size="{size}pt" style:font-size-asian="{size}pt"{weight}{line}/>', data))

    def width(self, millimetres):
        return self.of("table-column", (f'<style:table-column-properties style:column-width="{millimetres}mm"/>', ""))

    def height(self, millimetres):
        return self.of("table-row", (f'<style:table-row-properties style:row-height="{millimetres}mm"'
                                     ' style:use-optimal-row-height="false"/>', ""))

    def xml(self):
        for (family, (properties, data)), name in self._names.items():
            form = f' style:data-style-name="F-{data}"' if data else ""
            yield f'<style:style style:name="{name}" style:family="{family}"{form}>{properties}</style:style>'


class Sheet:
    """Rows of a form from the top, over all columns of the form."""

    def __init__(self, form):
        self.form = form
        self.styles = Styles()
        self.rows = []
        self.is_upright = sum(form.shown.values()) <= ROOM[True]
        # What the paper leaves over is room for the texts that wrap.
        wrapped = sum(form.shown[name] for name in WRAPPED & form.shown.keys())
        spare = 1 + (ROOM[self.is_upright] - sum(form.shown.values())) / wrapped
        self.widths = {name: round(width * spare, 1) if name in WRAPPED else width
                       for name, width in form.shown.items()}
        self.last = max(i for i, name in enumerate(form.columns) if name in form.shown)

    def spans(self, fields):
        """First and last column of each field, where the edges of shown columns come nearest to the fields' shares."""
        edges, reach = [], 0
        for i, name in enumerate(self.form.columns):
            reach += self.widths.get(name, 0)
            if name in self.form.shown:
                edges.append((reach, i))
        total, share, first = sum(weight for _, weight in fields), 0, 0
        for number, (_, weight) in enumerate(fields, 1):
            share += weight
            wanted = reach * share / total
            last = self.last if number == len(fields) else min(edges, key=lambda edge: abs(edge[0] - wanted))[1]
            assert last >= first, f"{self.form.file}: no room for {fields}"
            yield first, last
            first = last + 1

    def add(self, cells, height, hidden=False):
        visibility = ' table:visibility="collapse"' if hidden else ""
        style = self.styles.height(height)
        self.rows.append(f'<table:table-row table:style-name="{style}"{visibility}>{cells}</table:table-row>')

    def fields(self, fields, height, aligns=(), **look):
        """A row of fields, each merged over the columns of its share."""
        cells = ""
        for i, ((first, last), (text, _)) in enumerate(zip(self.spans(fields), fields)):
            style = self.styles.cell(align=aligns[i] if aligns else "start", wraps=True, **look)
            cells += cell(text, style, last - first + 1)
        self.add(cells, height)

    def hide_until(self, last):
        """Hidden rows up to the fixed place of the captions; whoever changes the form may show and use them."""
        assert len(self.rows) <= last, f"{self.form.file}: the head is too high"
        while len(self.rows) < last:
            self.add("<table:table-cell/>", 7, hidden=True)

    def captions(self):
        style = self.styles.cell(align="center", bold=True, border=THIN, shade="#d9d9d9")
        self.add("".join(cell(name, style) for name in self.form.columns), 8)

    def line(self):
        """A row as the bill's lines take it: format and height are copied to each line."""
        cells = ""
        for name in self.form.columns:
            look = {"align": side_of(name), "data": data_of(name), "wraps": name in WRAPPED & self.form.shown.keys()}
            cells += cell("", self.styles.cell(border=THIN, size=LINE_POINTS, **look))
        self.add(cells, self.form.line_height)

    def totals(self):
        """Totals below their columns, the word before the first of them."""
        first = min(i for i, name in enumerate(self.form.columns) if name in self.form.totals)
        cells = cell("合　　计", self.styles.cell(align="center", bold=True, border=THIN), first)
        for name in self.form.columns[first:]:
            style = self.styles.cell(align="end", bold=True, border=THIN, data=data_of(name))
            cells += cell(self.form.totals.get(name, ""), style)
        self.add(cells, 8)

    def fill(self):
        """The page from its title to its signatures."""
        form = self.form
        self.fields(row("?本单位名称"), 8, ["center"], size=14, font=HEADING)
        self.fields(row(form.title), 12, ["center"], size=22, bold=True, font=HEADING, underline=True)
        self.fields(row("单据编号：?单据编号", "单据日期：?单据日期", "?单据状态　?审核标志"), 7.5, ["start", "center", "end"])
        for fields in form.head:
            self.fields(fields, 7.5, border=THIN)
        self.hide_until(CAPTION_ROW - (2 if form.list_title else 1))
        if form.list_title:
            self.fields(row(form.list_title), 7, ["center"], bold=True, border=THIN)
        self.captions()
        self.line()
        self.line()
        if form.totals:
            self.totals()
        for fields in form.foot:
            self.fields(fields, 7.5, border=THIN)
        for fields in form.signatures:
            self.fields(fields, 9)
        self.fields([(form.note, 2), ("打印日期：?电脑日期", 1)], 6, ["start", "end"], size=9)

    def xml(self):
        columns = "".join(column(self.styles.width(self.widths.get(name, 20)), name in self.form.shown)
                          for name in self.form.columns)
        corner = f"{chr(ord('A') + self.last)}{len(self.rows)}"
        head, captions, rest = self.rows[:CAPTION_ROW - 1], self.rows[CAPTION_ROW - 1], self.rows[CAPTION_ROW:]
        return (f'<table:table table:name="sheet1" table:style-name="page" '
                f'table:print-ranges="sheet1.A1:sheet1.{corner}">{columns}{"".join(head)}'
                f'<table:table-header-rows>{captions}</table:table-header-rows>{"".join(rest)}</table:table>')


def cell(text, style, span=1):
    value = ' office:value-type="string"' if text else ""
    merged = f' table:number-columns-spanned="{span}" table:number-rows-spanned="1"' if span > 1 else ""
    covered = f'<table:covered-table-cell table:style-name="{style}"/>' * (span - 1)
    content = f"<text:p>{escape(text)}</text:p>" if text else ""
    return f'<table:table-cell table:style-name="{style}"{value}{merged}>{content}</table:table-cell>{covered}'


def column(style, shown):
    visibility = "" if shown else ' table:visibility="collapse"'
    return f'<table:table-column table:style-name="{style}"{visibility}/>'


def side_of(name):
    if name in FIGURES:
        return "end"
    return "center" if name in SHORT else "start"


def data_of(name):
    if name in MONEY:
        return "money"
    return "figure" if name in FIGURES else "text"


def style_sheet(word):
    """The sheet whose second cell asks for the barcode; without a word the workbook has none."""
    if not word:
        return ""
    lines = [["打印样式", word], [], ["本表第一行第二列的文字决定首列是否打印条形码，请勿改动。"]]
    cells = ["".join(cell(text, "Default") for text in texts) or "<table:table-cell/>" for texts in lines]
    rows = "".join(f"<table:table-row>{line}</table:table-row>" for line in cells)
    return f'<table:table table:name="{STYLE_SHEET}" table:print="false">{rows}</table:table>'


def page_layout(is_upright):
    """Never wider than the paper, whatever the width of a digit comes to where it is printed."""
    width, height = PAPER if is_upright else PAPER[::-1]
    orientation = "portrait" if is_upright else "landscape"
    return (f'<style:page-layout style:name="paper"><style:page-layout-properties fo:page-width="{width}mm" '
            f'fo:page-height="{height}mm" style:print-orientation="{orientation}" fo:margin="{MARGIN}mm" '
            f'style:table-centering="horizontal" style:scale-to-X="1" style:print-page-order="ttb"/>'
            f'<style:footer-style><style:header-footer-properties fo:min-height="7mm" fo:margin-top="2mm"/>'
            f'</style:footer-style></style:page-layout>')


def document(form):
    sheet = Sheet(form)
    sheet.fill()
    body = sheet.xml() + style_sheet(form.style_word)
    names = " ".join(f'xmlns:{prefix}="urn:oasis:names:tc:opendocument:xmlns:{name}:1.0"'
                     for prefix, name in NAMESPACES.items())
    fonts = "".join(f'<style:font-face style:name="{name}" svg:font-family="{name}"/>'
                    for name in (BODY, HEADING))
    return f"""<?xml version="1.0" encoding="UTF-8"?>
<office:document {names} office:version="1.3" office:mimetype="application/vnd.oasis.opendocument.spreadsheet">
<office:font-face-decls>{fonts}</office:font-face-decls>
<office:styles><style:style style:name="Default" style:family="table-cell"><style:text-properties
 style:font-name="{BODY}" style:font-name-asian="{BODY}" fo:font-size="10.5pt" style:font-size-asian="10.5pt"/>
</style:style></office:styles>
<office:automatic-styles>{DATA_STYLES}{"".join(sheet.styles.xml())}{page_layout(sheet.is_upright)}
<style:style style:name="page" style:family="table" style:master-page-name="page"/></office:automatic-styles>
<office:master-styles><style:master-page style:name="page" style:page-layout-name="paper">
<style:header style:display="false"/><style:footer>{PAGE_NUMBER}</style:footer></style:master-page>
</office:master-styles>
<office:body><office:spreadsheet>{body}</office:spreadsheet></office:body></office:document>
"""


def main():
    target = Path(__file__).resolve().parent
    with tempfile.TemporaryDirectory() as folder:
        fonts = Path(folder, "fonts.conf")
        fonts.write_text(FONTS, encoding="utf-8")
        forms = [*fixed_forms(), *USER_FORMS]
        for form in forms:
            Path(folder, form.file + ".fods").write_text(document(form), encoding="utf-8")
        subprocess.run(["soffice", "--headless", f"-env:UserInstallation=file://{folder}/profile", "--convert-to",
                        "xls:MS Excel 97", "--outdir", folder, *(f"{folder}/{form.file}.fods" for form in forms)],
                       check=True, stdout=subprocess.DEVNULL, env={**os.environ, "FONTCONFIG_FILE": str(fonts)})
        for form in forms:
            shutil.move(Path(folder, form.file + ".xls"), Path(target, form.folder, form.file + ".xls"))


if __name__ == "__main__":
    main()
