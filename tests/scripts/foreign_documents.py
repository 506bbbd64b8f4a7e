"""Makes Word documents with programs of other makers: with LibreOffice from texts, and with python3-docx."""
import base64
import subprocess
from pathlib import Path

import docx
from docx.oxml import parse_xml
from docx.oxml.ns import nsdecls

FLAT_TEXT = """<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0" xmlns:dc="http://purl.org/dc/elements/1.1/"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" xmlns:xlink="http://www.w3.org/1999/xlink"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
 xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0"
 xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"
 xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0"
 xmlns:loext="urn:org:documentfoundation:names:experimental:office:xmlns:loext:1.0"
 office:version="1.3" office:mimetype="application/vnd.oasis.opendocument.text">
<office:automatic-styles>
 <style:style style:name="Bold" style:family="text"><style:text-properties fo:font-weight="bold"/></style:style>
 <style:style style:name="Two" style:family="section"><style:section-properties>
  <style:columns fo:column-count="2" fo:column-gap="0.5cm"/></style:section-properties></style:style>
 <style:page-layout style:name="Page"><style:page-layout-properties fo:page-width="21cm" fo:page-height="29.7cm"
  fo:margin="2cm"/><style:header-style/><style:footer-style/></style:page-layout>
</office:automatic-styles>
<office:master-styles><style:master-page style:name="Standard" style:page-layout-name="Page">
 <style:header><text:p>Letterhead <text:bookmark-start text:name="InHeader"/>of ours<text:bookmark-end
  text:name="InHeader"/></text:p></style:header>
 <style:footer><text:p>Sheet <text:page-number text:select-page="current">1</text:page-number></text:p></style:footer>
</style:master-page></office:master-styles>
<office:body><office:text>
<text:tracked-changes>
 <text:changed-region text:id="c1"><text:insertion><office:change-info><dc:creator>Ann</dc:creator>
  <dc:date>2020-01-01T00:00:00</dc:date></office:change-info></text:insertion></text:changed-region>
 <text:changed-region text:id="c2"><text:deletion><office:change-info><dc:creator>Ben</dc:creator>
  <dc:date>2020-01-02T00:00:00</dc:date></office:change-info><text:p>withdrawn </text:p></text:deletion>
 </text:changed-region>
</text:tracked-changes>
<text:p>First <text:span text:style-name="Bold">words</text:span> stand here<text:change-start
 text:change-id="c1"/> inserted<text:change-end text:change-id="c1"/><text:change text:change-id="c2"/>.</text:p>
<text:p>A note<text:note text:id="n1" text:note-class="footnote"><text:note-citation>1</text:note-citation>
 <text:note-body><text:p>told below</text:p></text:note-body></text:note>, an end note<text:note text:id="n2"
 text:note-class="endnote"><text:note-citation>i</text:note-citation><text:note-body><text:p>told at last</text:p>
 </text:note-body></text:note>, a remark<office:annotation office:name="r1"><dc:creator>Ann</dc:creator>
 <text:p>remarked</text:p></office:annotation>ed word<office:annotation-end office:name="r1"/>.</text:p>
<text:p><text:bookmark-start text:name="Whole"/>Marked <text:bookmark-start text:name="Inner"/>twice<text:bookmark-end
 text:name="Inner"/></text:p>
<text:p>over lines<text:bookmark-end text:name="Whole"/> and <text:a xlink:href="https://example.org/">linked</text:a>,
 see <text:bookmark-ref text:reference-format="text" text:ref-name="Inner">twice</text:bookmark-ref>,
 titled <text:title>Title</text:title>, <loext:content-control>controlled</loext:content-control>.</text:p>
<table:table table:name="T"><table:table-column table:number-columns-repeated="2"/>
 <table:table-row><table:table-cell table:number-columns-spanned="2"><text:p>wide</text:p></table:table-cell>
  <table:covered-table-cell/></table:table-row>
 <table:table-row><table:table-cell><table:table table:name="N"><table:table-column/><table:table-row>
  <table:table-cell><text:p>nested</text:p></table:table-cell></table:table-row></table:table><text:p>after</text:p>
  </table:table-cell><table:table-cell><text:p><text:bookmark text:name="Spot"/>cell</text:p></table:table-cell>
 </table:table-row></table:table>
<text:section text:style-name="Two" text:name="S"><text:p>in columns</text:p></text:section>
<text:list><text:list-item><text:p>one</text:p></text:list-item><text:list-item><text:p>two</text:p></text:list-item>
</text:list>
<text:p><draw:frame text:anchor-type="paragraph" svg:width="4cm" svg:height="2cm" svg:x="8cm" svg:y="0cm"><draw:text-box>
 <text:p><text:bookmark-start text:name="Boxed"/>boxed<text:bookmark-end text:name="Boxed"/></text:p></draw:text-box>
 </draw:frame><draw:frame text:anchor-type="as-char" svg:width="1cm" svg:height="1cm"><draw:image>
 <office:binary-data>PICTURE</office:binary-data></draw:image></draw:frame> picture<text:line-break/>line<text:tab/>tab
</text:p>
</office:text></office:body></office:document>
"""

HTML = """<html><head><title>Page</title></head><body><h1>Heading</h1><p>Text with <b>bold</b> &amp; <a
 href="https://example.org/">link</a><br>line</p><table border="1"><tr><td rowspan="2">tall</td><td>right</td></tr>
<tr><td>below</td></tr></table><ol><li>first<li>second</ol><pre>kept   blanks</pre></body></html>
"""

BLOCKS = """<w:body {ns}>
<w:p><w:fldSimple w:instr=" DATE "><w:r><w:t>today</w:t></w:r></w:fldSimple><w:ins w:id="900" w:author="A">
 <w:r><w:t>added</w:t></w:r></w:ins><w:del w:id="901" w:author="A"><w:r><w:delText>gone</w:delText></w:r></w:del></w:p>
<w:sdt><w:sdtPr><w:alias w:val="C"/><w:text/></w:sdtPr><w:sdtContent><w:p><w:bookmarkStart w:id="902"
 w:name="_GoBack"/><w:bookmarkEnd w:id="902"/><w:r><w:t>held</w:t></w:r></w:p></w:sdtContent></w:sdt>
<w:p><w:bookmarkStart w:id="2147483640" w:name="customer"/><w:r><w:t>taken</w:t></w:r><w:bookmarkEnd
 w:id="2147483640"/><w:r><w:t xml:space="preserve"> <!-- kept --></w:t></w:r></w:p>
</w:body>"""


def flat_text(picture):
    """Returns a text in the flat format of OpenDocument with all features of a letter."""
    return FLAT_TEXT.replace("PICTURE", base64.b64encode(picture.read_bytes()).decode())


def convert(source, target, export_filter="docx:MS Word 2007 XML"):
    """Makes LibreOffice, with a profile of its own, write a source in another format to the target's folder."""
    profile = source.parent / "profile"
    subprocess.run(
        ["soffice", f"-env:UserInstallation={profile.as_uri()}", "--headless", "--norestore", "--convert-to",
         export_filter, "--outdir", target.parent, source],
        check=True, timeout=120, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    if not target.exists():
        raise AssertionError(f"LibreOffice could not read {source.name}")


def by_libreoffice(folder, name, text):
    source = folder / name
    source.write_text(text, encoding="utf-8")
    target = source.with_suffix(".docx")
    convert(source, target)
    return target


def by_python_docx(folder, picture):
    document = docx.Document()
    document.sections[0].header.paragraphs[0].text = "running head"
    document.add_heading("Heading", 1)
    table = document.add_table(2, 2, "Table Grid")
    table.cell(0, 0).merge(table.cell(0, 1)).text = "merged"
    table.cell(1, 0).add_table(1, 2).cell(0, 1).text = "nested"
    document.add_picture(str(picture))
    for block in parse_xml(BLOCKS.format(ns=nsdecls("w"))):
        document.element.body.insert(-1, block)
    document.add_section()
    document.add_paragraph("last", "List Bullet")
    target = folder / "python.docx"
    document.save(target)
    return target


def make_all(folder: Path, picture: Path):
    """Yields a name and a document for each of the programs and sources."""
    yield "flat", by_libreoffice(folder, "flat.fodt", flat_text(picture))
    yield "html", by_libreoffice(folder, "page.html", HTML)
    yield "python", by_python_docx(folder, picture)
    # A document that LibreOffice has read from another program and written again.
    again = folder / "again" / "python.docx"
    again.parent.mkdir()
    convert(folder / "python.docx", again)
    yield "again", again
