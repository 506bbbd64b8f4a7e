"""Makes Word documents of every feature alone and of random mixtures with a fixed seed, by python3-docx and
LibreOffice."""
import random
import subprocess
import zipfile
from pathlib import Path

import docx
from docx.enum.section import WD_SECTION
from docx.opc.constants import RELATIONSHIP_TYPE
from docx.opc.packuri import PackURI
from docx.opc.part import Part
from docx.oxml import parse_xml

import foreign_documents

NAMESPACES = " ".join(f'xmlns:{prefix}="{uri}"' for prefix, uri in {
    "w": "http://schemas.openxmlformats.org/wordprocessingml/2006/main",
    "r": "http://schemas.openxmlformats.org/officeDocument/2006/relationships",
    "mc": "http://schemas.openxmlformats.org/markup-compatibility/2006",
    "wp": "http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing",
    "a": "http://schemas.openxmlformats.org/drawingml/2006/main",
    "wps": "http://schemas.microsoft.com/office/word/2010/wordprocessingShape",
    "w14": "http://schemas.microsoft.com/office/word/2010/wordml",
    "v": "urn:schemas-microsoft-com:vml",
    "m": "http://schemas.openxmlformats.org/officeDocument/2006/math",
}.items())
WORDS = "harbour order letter invoice total customer street between delivery quantity price remark thanks".split()

# Blocks of the body with one feature each. {n} is a number that is new in the document, {text} some words.
BLOCKS = {
    "field": """<w:p><w:r><w:t xml:space="preserve">{text} </w:t></w:r><w:r><w:fldChar w:fldCharType="begin"/></w:r>
<w:r><w:instrText xml:space="preserve"> DATE \\@ "d.M.yyyy" </w:instrText></w:r><w:r><w:fldChar
 w:fldCharType="separate"/></w:r><w:r><w:t>1.1.2020</w:t></w:r><w:r><w:fldChar w:fldCharType="end"/></w:r></w:p>""",
    "page": """<w:p><w:fldSimple w:instr=" PAGE "><w:r><w:t>1</w:t></w:r></w:fldSimple><w:r><w:t
 xml:space="preserve"> of </w:t></w:r><w:fldSimple w:instr=" NUMPAGES "><w:r><w:t>2</w:t></w:r></w:fldSimple></w:p>""",
    "merge field": """<w:p><w:r><w:t xml:space="preserve">Dear </w:t></w:r><w:fldSimple w:instr=" MERGEFIELD Name ">
<w:r><w:t>«Name»</w:t></w:r></w:fldSimple><w:r><w:t>, {text}</w:t></w:r></w:p>""",
    "nested field": """<w:p><w:r><w:fldChar w:fldCharType="begin"/></w:r><w:r><w:instrText
 xml:space="preserve"> IF "</w:instrText></w:r><w:r><w:fldChar w:fldCharType="begin"/></w:r><w:r><w:instrText
 xml:space="preserve"> MERGEFIELD Sex </w:instrText></w:r><w:r><w:fldChar w:fldCharType="separate"/></w:r><w:r><w:t>m</w:t>
</w:r><w:r><w:fldChar w:fldCharType="end"/></w:r><w:r><w:instrText xml:space="preserve">" = "m" "Mr" "Ms" </w:instrText>
</w:r><w:r><w:fldChar w:fldCharType="separate"/></w:r><w:r><w:t>Mr</w:t></w:r><w:r><w:fldChar w:fldCharType="end"/></w:r>
</w:p>""",
    "link": """<w:p><w:r><w:fldChar w:fldCharType="begin"/></w:r><w:r><w:instrText xml:space="preserve"> HYPERLINK
 "https://example.org/" </w:instrText></w:r><w:r><w:fldChar w:fldCharType="separate"/></w:r><w:r><w:rPr><w:u
 w:val="single"/></w:rPr><w:t>{text}</w:t></w:r><w:r><w:fldChar w:fldCharType="end"/></w:r></w:p>""",
    "anchor": """<w:p><w:hyperlink w:anchor="Mark{n}" w:history="1"><w:r><w:t>{text}</w:t></w:r></w:hyperlink></w:p>
<w:p><w:bookmarkStart w:id="{n}" w:name="Mark{n}"/><w:r><w:t>target</w:t></w:r><w:bookmarkEnd w:id="{n}"/></w:p>""",
    "marks": """<w:p><w:bookmarkStart w:id="{n}" w:name="Over{n}"/><w:r><w:t>{text}</w:t></w:r></w:p><w:p><w:r><w:t
 xml:space="preserve">ends here </w:t></w:r><w:bookmarkEnd w:id="{n}"/><w:bookmarkStart w:id="{n}1" w:name="Spot{n}"/>
<w:bookmarkEnd w:id="{n}1"/><w:r><w:t>and goes on</w:t></w:r></w:p>""",
    "block control": """<w:sdt><w:sdtPr><w:alias w:val="Terms"/><w:tag w:val="terms{n}"/><w:id w:val="{n}"/></w:sdtPr>
<w:sdtContent><w:p><w:r><w:t>{text}</w:t></w:r></w:p><w:p><w:r><w:t>more of it</w:t></w:r></w:p></w:sdtContent></w:sdt>""",
    "text control": """<w:p><w:r><w:t xml:space="preserve">Name: </w:t></w:r><w:sdt><w:sdtPr><w:tag w:val="t{n}"/><w:id
 w:val="{n}"/><w:text/></w:sdtPr><w:sdtContent><w:r><w:t>{text}</w:t></w:r></w:sdtContent></w:sdt></w:p>""",
    "list control": """<w:p><w:sdt><w:sdtPr><w:id w:val="{n}"/><w:dropDownList><w:listItem w:displayText="one"
 w:value="1"/><w:listItem w:displayText="two" w:value="2"/></w:dropDownList></w:sdtPr><w:sdtContent><w:r><w:t>one</w:t>
</w:r></w:sdtContent></w:sdt><w:r><w:t xml:space="preserve"> {text}</w:t></w:r></w:p>""",
    "check control": """<w:p><w:sdt><w:sdtPr><w:id w:val="{n}"/><w14:checkbox><w14:checked w14:val="0"/>
<w14:checkedState w14:val="2612" w14:font="MS Gothic"/><w14:uncheckedState w14:val="2610" w14:font="MS Gothic"/>
</w14:checkbox></w:sdtPr><w:sdtContent><w:r><w:t>☐</w:t></w:r></w:sdtContent></w:sdt><w:r><w:t
 xml:space="preserve"> {text}</w:t></w:r></w:p>""",
    "date control": """<w:p><w:sdt><w:sdtPr><w:id w:val="{n}"/><w:date w:fullDate="2020-01-01T00:00:00Z"><w:dateFormat
 w:val="d.M.yyyy"/><w:lid w:val="de-DE"/></w:date></w:sdtPr><w:sdtContent><w:r><w:t>1.1.2020</w:t></w:r></w:sdtContent>
</w:sdt></w:p>""",
    "changes": """<w:p><w:r><w:t xml:space="preserve">{text} </w:t></w:r><w:ins w:id="{n}" w:author="Ann"
 w:date="2020-01-01T00:00:00Z"><w:r><w:t xml:space="preserve">inserted </w:t></w:r></w:ins><w:del w:id="{n}1"
 w:author="Ben" w:date="2020-01-01T00:00:00Z"><w:r><w:delText>deleted</w:delText></w:r></w:del></w:p>""",
    "form fields": """<w:p><w:r><w:t xml:space="preserve">{text} </w:t></w:r><w:r><w:fldChar w:fldCharType="begin">
<w:ffData><w:name w:val="Text{n}"/><w:enabled/><w:textInput/></w:ffData></w:fldChar></w:r><w:r><w:instrText
 xml:space="preserve"> FORMTEXT </w:instrText></w:r><w:r><w:fldChar w:fldCharType="separate"/></w:r><w:r><w:t>typed</w:t>
</w:r><w:r><w:fldChar w:fldCharType="end"/></w:r></w:p>""",
    "alternate": """<w:p><w:r><mc:AlternateContent><mc:Choice Requires="wps"><w:drawing><wp:anchor distT="0" distB="0"
 distL="0" distR="0" simplePos="0" relativeHeight="{n}" behindDoc="0" locked="0" layoutInCell="1" allowOverlap="1">
<wp:simplePos x="0" y="0"/><wp:positionH relativeFrom="column"><wp:posOffset>3000000</wp:posOffset></wp:positionH>
<wp:positionV relativeFrom="paragraph"><wp:posOffset>0</wp:posOffset></wp:positionV><wp:extent cx="1800000" cy="700000"/>
<wp:wrapSquare wrapText="bothSides"/><wp:docPr id="{n}" name="Box {n}"/><a:graphic><a:graphicData
 uri="http://schemas.microsoft.com/office/word/2010/wordprocessingShape"><wps:wsp><wps:cNvSpPr txBox="1"/><wps:spPr>
<a:xfrm><a:off x="0" y="0"/><a:ext cx="1800000" cy="700000"/></a:xfrm><a:prstGeom prst="rect"><a:avLst/></a:prstGeom>
</wps:spPr><wps:txbx><w:txbxContent><w:p><w:r><w:t>boxed words</w:t></w:r></w:p></w:txbxContent></wps:txbx><wps:bodyPr/>
</wps:wsp></a:graphicData></a:graphic></wp:anchor></w:drawing></mc:Choice><mc:Fallback><w:pict><v:shape
 style="width:100pt;height:40pt"><v:textbox><w:txbxContent><w:p><w:r><w:t>boxed words</w:t></w:r></w:p></w:txbxContent>
</v:textbox></v:shape></w:pict></mc:Fallback></mc:AlternateContent></w:r><w:r><w:t>{text}</w:t></w:r></w:p>""",
    "grid table": """<w:tbl><w:tblPr><w:tblStyle w:val="TableGrid"/><w:tblW w:w="0" w:type="auto"/><w:tblLook
 w:val="04A0"/></w:tblPr><w:tblGrid><w:gridCol w:w="3000"/><w:gridCol w:w="3000"/><w:gridCol w:w="3000"/></w:tblGrid>
<w:tr><w:trPr><w:tblHeader/></w:trPr><w:tc><w:tcPr><w:tcW w:w="6000" w:type="dxa"/><w:gridSpan w:val="2"/></w:tcPr><w:p>
<w:r><w:rPr><w:b/></w:rPr><w:t>wide</w:t></w:r></w:p></w:tc><w:tc><w:tcPr><w:tcW w:w="3000" w:type="dxa"/><w:vMerge
 w:val="restart"/></w:tcPr><w:p><w:r><w:t>tall</w:t></w:r></w:p></w:tc></w:tr><w:tr><w:tc><w:tcPr><w:tcW w:w="3000"
 w:type="dxa"/></w:tcPr><w:p><w:r><w:t>{text}</w:t></w:r></w:p></w:tc><w:tc><w:tcPr><w:tcW w:w="3000" w:type="dxa"/>
</w:tcPr><w:p/></w:tc><w:tc><w:tcPr><w:tcW w:w="3000" w:type="dxa"/><w:vMerge/></w:tcPr><w:p/></w:tc></w:tr></w:tbl>
<w:p><w:r><w:t>after the table</w:t></w:r></w:p>""",
    "uneven table": """<w:tbl><w:tblPr><w:tblW w:w="0" w:type="auto"/></w:tblPr><w:tblGrid><w:gridCol w:w="2000"/>
<w:gridCol w:w="2000"/><w:gridCol w:w="2000"/></w:tblGrid><w:tr><w:trPr><w:gridBefore w:val="1"/><w:wBefore w:w="2000"
 w:type="dxa"/></w:trPr><w:tc><w:tcPr><w:tcW w:w="2000" w:type="dxa"/></w:tcPr><w:p><w:r><w:t>second</w:t></w:r></w:p>
</w:tc><w:tc><w:tcPr><w:tcW w:w="2000" w:type="dxa"/></w:tcPr><w:p><w:r><w:t>third</w:t></w:r></w:p></w:tc></w:tr>
<w:tr><w:tc><w:tcPr><w:tcW w:w="2000" w:type="dxa"/></w:tcPr><w:p><w:r><w:t>{text}</w:t></w:r></w:p></w:tc><w:tc><w:tcPr>
<w:tcW w:w="4000" w:type="dxa"/><w:gridSpan w:val="2"/></w:tcPr><w:p/></w:tc></w:tr></w:tbl><w:p/>""",
    "nested table": """<w:tbl><w:tblPr><w:tblW w:w="0" w:type="auto"/></w:tblPr><w:tblGrid><w:gridCol w:w="6000"/>
</w:tblGrid><w:tr><w:tc><w:tcPr><w:tcW w:w="6000" w:type="dxa"/></w:tcPr><w:p><w:r><w:t>outer</w:t></w:r></w:p><w:tbl>
<w:tblPr><w:tblW w:w="0" w:type="auto"/></w:tblPr><w:tblGrid><w:gridCol w:w="2000"/></w:tblGrid><w:tr><w:tc><w:tcPr><w:tcW
 w:w="2000" w:type="dxa"/></w:tcPr><w:p><w:r><w:t>{text}</w:t></w:r></w:p></w:tc></w:tr></w:tbl><w:p/></w:tc></w:tr>
</w:tbl><w:p/>""",
    "bidi": """<w:p><w:pPr><w:bidi/><w:jc w:val="left"/></w:pPr><w:r><w:rPr><w:rFonts w:hint="cs"/><w:rtl/><w:lang
 w:bidi="he-IL"/></w:rPr><w:t>שלום עולם</w:t></w:r><w:r><w:t xml:space="preserve"> {text}</w:t></w:r></w:p>""",
    "ids": """<w:p w:rsidR="00AB12CD" w:rsidRDefault="00AB12CD" w14:paraId="1A2B{n}" w14:textId="77777777"><w:r
 w:rsidRPr="00EE12CD"><w:t>{text}</w:t></w:r><w:proofErr w:type="spellStart"/><w:r><w:t>errrr</w:t></w:r><w:proofErr
 w:type="spellEnd"/></w:p>""",
    "looks": """<w:p><w:pPr><w:keepNext/><w:pBdr><w:bottom w:val="single" w:sz="4" w:space="1" w:color="auto"/></w:pBdr>
<w:shd w:val="clear" w:color="auto" w:fill="D9D9D9" w:themeFill="background1" w:themeFillShade="D9"/><w:spacing
 w:before="120" w:after="60" w:line="360" w:lineRule="auto"/><w:ind w:left="720" w:hanging="360"/></w:pPr><w:r><w:rPr>
<w:rFonts w:asciiTheme="majorHAnsi" w:hAnsiTheme="majorHAnsi"/><w:b/><w:color w:val="1F497D" w:themeColor="text2"/>
<w:sz w:val="28"/></w:rPr><w:t xml:space="preserve">{text} </w:t></w:r><w:r><w:rPr><w:i/><w:smallCaps/><w:spacing
 w:val="20"/></w:rPr><w:t>slanted</w:t></w:r><w:r><w:rPr><w:vertAlign w:val="superscript"/></w:rPr><w:t>2</w:t></w:r>
<w:r><w:rPr><w:strike/><w:highlight w:val="yellow"/></w:rPr><w:t>struck</w:t></w:r></w:p>""",
    "special": """<w:p><w:pPr><w:tabs><w:tab w:val="right" w:leader="dot" w:pos="8000"/></w:tabs></w:pPr><w:r><w:t>{text}</w:t>
<w:tab/><w:t>1</w:t><w:br/><w:t>soft</w:t><w:softHyphen/><w:t>hyphen</w:t><w:noBreakHyphen/><w:t>x</w:t><w:sym
 w:font="Wingdings" w:char="F04A"/></w:r></w:p><w:p><w:r><w:br w:type="page"/></w:r><w:r><w:t>next page</w:t></w:r></w:p>""",
    "hidden": """<w:p><w:r><w:rPr><w:vanish/></w:rPr><w:t xml:space="preserve">hidden </w:t></w:r><w:r><w:t>{text}</w:t>
</w:r></w:p>""",
    "formula": """<w:p><m:oMath><m:r><m:t>a+b</m:t></m:r></m:oMath><w:r><w:t xml:space="preserve"> {text}</w:t></w:r></w:p>""",
    "frame": """<w:p><w:pPr><w:framePr w:w="2000" w:h="600" w:hRule="exact" w:wrap="around" w:vAnchor="text"
 w:hAnchor="page" w:x="7000" w:y="100"/></w:pPr><w:r><w:t>framed</w:t></w:r></w:p><w:p><w:r><w:t>{text}</w:t></w:r></w:p>""",
    "columns": """<w:p><w:r><w:t>{text}</w:t></w:r></w:p><w:p><w:pPr><w:sectPr><w:type w:val="continuous"/><w:cols w:num="2"
 w:space="708"/></w:sectPr></w:pPr><w:r><w:t>end of a section</w:t></w:r></w:p>""",
    "smart": """<w:p><w:smartTag w:uri="urn:x" w:element="City"><w:r><w:t>{text}</w:t></w:r></w:smartTag><w:customXml
 w:uri="urn:x" w:element="it"><w:r><w:t xml:space="preserve"> more</w:t></w:r></w:customXml></w:p>""",
}
EXTRAS = ("header", "sections", "picture", "list", "heading", "custom XML", "comment", "footnote", "odd parts", "macros")
WITH_CONTROLS = {name for name in BLOCKS if "control" in name} | {"changes", "form fields"}


def words(chance, most=12):
    return " ".join(chance.choice(WORDS) for _ in range(chance.randint(2, most)))


def block(name, chance):
    text = BLOCKS[name].replace("{n}", str(chance.randint(1000, 9999))).replace("{text}", words(chance))
    return list(parse_xml(f"<w:body {NAMESPACES}>{text}</w:body>"))


def add_part(document, name, kind, content_type, content, owner=None):
    part = Part(PackURI(name), content_type, content.encode() if isinstance(content, str) else content,
                document.part.package)
    return (owner or document.part).relate_to(
        part, f"http://schemas.openxmlformats.org/officeDocument/2006/relationships/{kind}")


TYPE = "application/vnd.openxmlformats-officedocument.wordprocessingml."


def add_extra(document, name, chance, picture):
    if name == "header":
        section = document.sections[0]
        section.different_first_page_header_footer = chance.random() < 0.5
        section.header.paragraphs[0].text = "running head"
        section.footer.paragraphs[0].text = words(chance)
        section.first_page_header.paragraphs[0].text = "first head"
    elif name == "sections":
        section = document.add_section(WD_SECTION.NEW_PAGE)
        section.page_width, section.page_height = section.page_height, section.page_width
        document.add_paragraph(words(chance))
        document.add_section(WD_SECTION.ODD_PAGE).header.is_linked_to_previous = False
    elif name == "picture":
        document.add_paragraph().add_run(words(chance)).add_picture(str(picture))
    elif name == "list":
        for style in ("List Bullet", "List Number", "List Number", "List Bullet 2"):
            document.add_paragraph(words(chance), style)
    elif name == "heading":
        document.add_heading(words(chance, 3), chance.randint(0, 3))
    elif name == "custom XML":
        add_part(document, "/customXml/item9.xml", "customXml", "application/xml", "<data xmlns='urn:ours'>kept</data>")
    elif name == "comment":
        add_comment(document, chance)
    elif name == "footnote":
        add_footnote(document, chance)
    elif name == "odd parts":
        add_part(document, "/deep/er/thing.bin", "oleObject", "application/octet-stream", b"\0\1")
    elif name == "macros":
        part = Part(PackURI("/word/vbaProject.bin"), "application/vnd.ms-office.vbaProject", b"macros",
                    document.part.package)
        document.part.relate_to(part, "http://schemas.microsoft.com/office/2006/relationships/vbaProject")


def add_comment(document, chance):
    add_part(document, "/word/comments.xml", "comments", TYPE + "comments+xml",
             f"""<w:comments {NAMESPACES}><w:comment w:id="0" w:author="Ann" w:initials="A"><w:p><w:r><w:t>remarked</w:t>
</w:r></w:p></w:comment></w:comments>""")
    for each in parse_xml(f"""<w:body {NAMESPACES}><w:p><w:commentRangeStart w:id="0"/><w:r><w:t>{words(chance)}</w:t></w:r>
<w:commentRangeEnd w:id="0"/><w:r><w:commentReference w:id="0"/></w:r></w:p></w:body>"""):
        document.element.body.insert(0, each)


def add_footnote(document, chance):
    add_part(document, "/word/footnotes.xml", "footnotes", TYPE + "footnotes+xml", f"""<w:footnotes {NAMESPACES}>
<w:footnote w:type="separator" w:id="-1"><w:p><w:r><w:separator/></w:r></w:p></w:footnote><w:footnote
 w:type="continuationSeparator" w:id="0"><w:p><w:r><w:continuationSeparator/></w:r></w:p></w:footnote><w:footnote
 w:id="1"><w:p><w:r><w:footnoteRef/></w:r><w:r><w:t xml:space="preserve"> told below</w:t></w:r></w:p></w:footnote>
</w:footnotes>""")
    for each in parse_xml(f"""<w:body {NAMESPACES}><w:p><w:r><w:t>{words(chance)}</w:t></w:r><w:r><w:rPr><w:vertAlign
 w:val="superscript"/></w:rPr><w:footnoteReference w:id="1"/></w:r><w:r><w:t>.</w:t></w:r></w:p></w:body>"""):
        document.element.body.insert(0, each)


def make_document(path, features, chance, picture):
    """Writes a document of some pages with the features between paragraphs."""
    document = docx.Document()
    for _ in range(chance.randint(10, 30)):
        document.add_paragraph(words(chance, 30))
    blocks = [name for name in features if name in BLOCKS]
    for name in features:
        document.add_paragraph(words(chance))
        if name in EXTRAS:
            add_extra(document, name, chance, picture)
            continue
        for each in block(name, chance):
            document.element.body.insert(len(document.element.body) - 1, each)
        if chance.random() < 0.5:
            document.add_paragraph().add_run(words(chance)).bold = True
    for _ in range(chance.randint(5, 30)):
        document.add_paragraph(words(chance, 30))
    document.save(path)
    if "macros" in features:
        retype(path, "document.main+xml", "application/vnd.ms-word.document.macroEnabled.main+xml")
    return bool(WITH_CONTROLS & set(blocks))


def retype(path, former, now):
    """Changes the type of the main part."""
    with zipfile.ZipFile(path) as archive:
        entries = {name: archive.read(name) for name in archive.namelist()}
    types = entries["[Content_Types].xml"].decode()
    entries["[Content_Types].xml"] = types.replace(TYPE + former, now).encode()
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in entries.items():
            archive.writestr(name, content)


def make_strict(source, target):
    """Writes a document in the strict vocabulary."""
    with zipfile.ZipFile(source) as archive, zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as strict:
        for name in archive.namelist():
            content = archive.read(name)
            for former, now in (
                    ("http://schemas.openxmlformats.org/wordprocessingml/2006/main",
                     "http://purl.oclc.org/ooxml/wordprocessingml/main"),
                    ("http://schemas.openxmlformats.org/officeDocument/2006/relationships",
                     "http://purl.oclc.org/ooxml/officeDocument/relationships")):
                if name.endswith((".xml", ".rels")):
                    content = content.replace(former.encode(), now.encode())
            strict.writestr(name, content)


def move_targets(source, target):
    """Writes a document whose relationships have absolute targets."""
    with zipfile.ZipFile(source) as archive, zipfile.ZipFile(target, "w", zipfile.ZIP_STORED) as moved:
        for name in archive.namelist():
            content = archive.read(name)
            if name == "word/_rels/document.xml.rels":
                content = content.replace(b'Target="', b'Target="/word/').replace(b"/word/../", b"/")
                content = content.replace(b'Target="/word/http', b'Target="http').replace(b"/word//", b"/")
            moved.writestr(name, content)


def by_libreoffice(folder, picture):
    """Yields documents that LibreOffice converts, from its own formats and from old ones of Word."""
    flat = folder / "flat.fodt"
    flat.write_text(foreign_documents.flat_text(picture), encoding="utf-8")
    for extension, name in (("odt", "writer8"), ("doc", "MS Word 97"), ("rtf", "Rich Text Format")):
        middle = folder / f"from-{extension}.{extension}"
        subprocess.run(["cp", flat, folder / f"from-{extension}.fodt"], check=True)
        foreign_documents.convert(folder / f"from-{extension}.fodt", middle, f"{extension}:{name}")
        foreign_documents.convert(middle, middle.with_suffix(".docx"))
        (folder / f"from-{extension}.fodt").unlink()
        middle.unlink()
        yield middle.with_suffix(".docx"), True
    flat.unlink()


def make_all(folder: Path, picture: Path, mixtures: int, seed: int = 1, converted: bool = True):
    """Yields each document with True if it has content controls, tracked changes or form fields."""
    features = [*BLOCKS, *EXTRAS]
    for name in features:
        path = folder / f"{name.replace(' ', '-')}.{'docm' if name == 'macros' else 'docx'}"
        yield path, make_document(path, [name], random.Random(f"{seed}{name}"), picture)
    for number in range(mixtures):
        chance = random.Random(f"{seed}-{number}")
        # Half of them have none of the features that are known to be difficult.
        pool = features if number % 2 else [name for name in features if name not in WITH_CONTROLS]
        chosen = chance.sample([name for name in pool if name != "macros"], chance.randint(2, 7))
        path = folder / f"mixture{number:03}.docx"
        hard = make_document(path, chosen, chance, picture)
        if number % 10 == 8:
            path = path.rename(path.with_name("source.docx"))
            make_strict(path, folder / f"strict{number:03}.docx")
        if number % 10 == 6:
            path = path.rename(path.with_name("source.docx"))
            move_targets(path, folder / f"absolute{number:03}.docx")
        if path.name == "source.docx":
            path.unlink()
            path = next(folder.glob(f"[as]*{number:03}.docx"))
        yield path, hard
    if converted:
        yield from by_libreoffice(folder, picture)
