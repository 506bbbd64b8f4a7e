"""Writes a letter whose text is shaded in a color that occurs nowhere else on the screen."""
import docx
from docx.oxml import OxmlElement
from docx.oxml.ns import qn

SHADE = (0xd0, 0x20, 0x90)


def write_shaded_letter(path, lines=60):
    """Writes lines that fill more than a page. The path's extension may be docx or dotx."""
    letter = docx.Document()
    for _ in range(lines):
        paragraph = letter.add_paragraph("A line of the letter.")
        shade = OxmlElement("w:shd")
        shade.set(qn("w:val"), "clear")
        shade.set(qn("w:fill"), "%02x%02x%02x" % SHADE)
        paragraph._p.get_or_add_pPr().append(shade)  # noqa: SLF001
    if str(path).endswith(".dotx"):
        part = letter.part
        part._content_type = part.content_type.replace("document.main", "template.main")  # noqa: SLF001
    letter.save(path)
