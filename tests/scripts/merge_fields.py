"""Provides paragraphs with every kind of merge field, and the expected results of their conversion."""
import docx
from docx.oxml import parse_xml
from docx.oxml.ns import nsdecls, qn


def text(content):
    return f'<w:r><w:t xml:space="preserve">{content}</w:t></w:r>'


def code(content):
    return f'<w:r><w:instrText xml:space="preserve">{content}</w:instrText></w:r>'


def complex_field(code_runs, result):
    """Returns a field of runs with its code and its result. Without a result it has no separator either."""
    mark = '<w:r><w:fldChar w:fldCharType="{}"/></w:r>'.format
    return mark("begin") + code_runs + (mark("separate") + result if result else "") + mark("end")


def field(content, result=text("shown")):
    return complex_field(code(content), result)


def simple(content):
    return f'<w:fldSimple w:instr="{content}">{text("shown")}</w:fldSimple>'


NESTED = complex_field(code(" QUOTE ") + field(" MERGEFIELD X# ", text("inner")) + code(" "), text("both"))
SPLIT = complex_field(code(" MERGE") + '<w:proofErr w:type="spellStart"/>' + code("FIELD  ") + code("Split# ")
                      + '<w:proofErr w:type="spellEnd"/>' + code("\\* MERGEFORMAT "), text("shown"))
# The runs of the fields, in which "#" is the paragraph's number.
PLACES = {runs: f"[{name}:{name}]" for runs, name in (
    (field(" MERGEFIELD Town# "), "Town#"), (field(" MERGEFIELD  Name#  \\* MERGEFORMAT "), "Name#"),
    (field(' MERGEFIELD "First Name#" '), "FirstName#"), (field("MERGEFIELD\tStreet#"), "Street#"),
    (simple(" MERGEFIELD  Town# \\b &quot;x &quot;"), "Town#"), (field(" MERGEFIELD Empty# ", ""), "Empty#"),
    (SPLIT, "Split#"), (field(' QUOTE "word#" '), "word#"), (field(" QUOTE word# ", ""), "word#"),
    (simple(" QUOTE &quot;two words#&quot; "), "twowords#"), (field('QUOTE"Land#"'), "Land#"),
    (field(" quote  word# ", text("\U0001f600 shown")), "word#"), (NESTED, "X#"),
    (field(" SKIPIF Count# = 2 "), "Count#"), (field(" SKIPIF None# = 2 ", ""), "None#"),
)}
REMOVED = {field(f" {keyword} ", result): "" for keyword in ("NEXT", "MERGEREC", "MERGESEQ")
           for result in (text("1"), "")}
LEFT = ('ADDRESSBLOCK \\f "x"', "GREETINGLINE", 'ASK One "Who is it?"', 'FILLIN "Who is it?"', 'SET Two "a"')
CASES = PLACES | REMOVED | {field(content): "{" + content.split()[0] for content in LEFT}

REPORT = (f"{len(PLACES) + len(CASES)} fields became places, {len(REMOVED)} were removed.\n"
          "Removed: NEXT (2 times)\nRemoved: MERGEREC (2 times)\nRemoved: MERGESEQ (2 times)\n"
          f"{len(LEFT)} fields stayed.\n" + "".join(f"Stayed: {content}\n" for content in LEFT))


def write(path, paragraphs):
    document = docx.Document()
    for runs in paragraphs:
        document.add_paragraph()._p.extend(parse_xml(f"<w:p {nsdecls('w')}>{runs}</w:p>"))
    document.save(path)


def write_every_kind(path):
    """Writes each field before another one, so that the test finds a shift of positions."""
    write(path, [f"{text('a ')}{runs}{text(' b ')}{field(' MERGEFIELD Last# ', text('last name'))}{text(' c')}"
                 .replace("#", str(number)) for number, runs in enumerate(CASES)])


def shown_fields(paragraph):
    """Returns the text of a paragraph with bookmarks as [name:text] and fields as {code|result}."""
    marks = {"begin": "{", "separate": "|", "end": "}"}
    shown = ""
    for element in paragraph.iter():
        if element.tag in (qn("w:t"), qn("w:instrText")):
            shown += (element.text or "").strip() if element.tag == qn("w:instrText") else element.text or ""
        elif element.tag == qn("w:fldChar"):
            shown += marks[element.get(qn("w:fldCharType"))]
        elif element.tag == qn("w:bookmarkStart"):
            shown += f"[{element.get(qn('w:name'))}:"
        elif element.tag == qn("w:bookmarkEnd"):
            shown += "]"
    return shown


def read(path):
    return [shown_fields(paragraph._p) for paragraph in docx.Document(path).paragraphs]


def wrong_paragraphs(path):
    """Returns the paragraphs of a converted document of every kind that differ from the expected ones."""
    wrong = []
    for number, (expected, found) in enumerate(zip(CASES.values(), read(path), strict=True)):
        start, end = f"a {expected}".replace("#", str(number)), f" b [Last{number}:Last{number}] c"
        stays = expected.startswith("{")
        if not (found.startswith(start) and found.endswith(end)) or (not stays and found != start + end):
            wrong.append(found)
    return wrong
