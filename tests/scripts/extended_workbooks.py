"""Adds content to workbooks that no library for Python writes: threads of comments, slicers, and further
parts of Excel. The parts are those of Microsoft's extensions of Office Open XML ([MS-XLSX])."""
import zipfile

MAIN = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
OFFICE = "http://schemas.openxmlformats.org/officeDocument/2006"
THREAD = "{11111111-2222-3333-4444-555555555555}"
ANSWER = "{11111111-2222-3333-4444-666666666666}"
PERSON = "{11111111-2222-3333-4444-777777777777}"
PEOPLE = "http://schemas.microsoft.com/office/2017/10/relationships"
SLICERS = "http://schemas.microsoft.com/office/2007/relationships"
X14 = "http://schemas.microsoft.com/office/spreadsheetml/2009/9/main"
X15 = "http://schemas.microsoft.com/office/spreadsheetml/2010/11/main"


class Package:
    """The entries of a workbook, which can get further parts."""

    def __init__(self, path):
        self.path = path
        with zipfile.ZipFile(path) as archive:
            self.entries = {name: archive.read(name) for name in archive.namelist()}

    def replace(self, name, former, now):
        text = self.entries[name].decode()
        if former not in text:
            raise AssertionError(f"{name} of {self.path.name} has no {former}")
        self.entries[name] = text.replace(former, now, 1).encode()

    def relate(self, source, kind, target):
        """Adds a relationship and returns its id."""
        folder, name = source.rsplit("/", 1)
        part = f"{folder}/_rels/{name}.rels"
        empty = '<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships"></Relationships>'
        text = self.entries.setdefault(part, empty.encode()).decode()
        number = f"rIdOwn{text.count('<Relationship ') + 1}"
        self.entries[part] = text.replace("</Relationships>", f'<Relationship Id="{number}" Type="{kind}" '
                                          f'Target="{target}"/></Relationships>').encode()
        return number

    def add(self, name, content_type, content):
        self.entries[name] = content.encode()
        self.replace("[Content_Types].xml", "</Types>",
                     f'<Override PartName="/{name}" ContentType="application/{content_type}"/></Types>')

    def save(self):
        with zipfile.ZipFile(self.path, "w", zipfile.ZIP_DEFLATED) as archive:
            for name, content in self.entries.items():
                archive.writestr(name, content)


def thread(package):
    """Adds a thread of two comments to the comment, which remains for older programs."""
    namespace = "http://schemas.microsoft.com/office/spreadsheetml/2018/threadedcomments"
    package.replace("xl/comments1.xml", "<author>Ann</author>", f"<author>tc={THREAD}</author>")
    package.replace("xl/comments1.xml", 'ref="B2"', f'ref="B2" xr:uid="{THREAD}" xmlns:xr='
                    '"http://schemas.microsoft.com/office/spreadsheetml/2014/revision"')
    package.add("xl/persons/person.xml", "vnd.ms-excel.person+xml",
                f'<personList xmlns="{namespace}"><person displayName="Ann" id="{PERSON}" userId="Ann" '
                'providerId="None"/></personList>')
    package.relate("xl/workbook.xml", f"{PEOPLE}/person", "persons/person.xml")
    package.add("xl/threadedComments/threadedComment1.xml", "vnd.ms-excel.threadedcomments+xml",
                f'<ThreadedComments xmlns="{namespace}"><threadedComment ref="B2" dT="2020-01-01T10:00:00.00" '
                f'personId="{PERSON}" id="{THREAD}"><text>remarked</text></threadedComment><threadedComment ref="B2" '
                f'dT="2020-01-02T10:00:00.00" personId="{PERSON}" id="{ANSWER}" parentId="{THREAD}"><text>answered'
                "</text></threadedComment></ThreadedComments>")
    package.relate("xl/worksheets/sheet1.xml", f"{PEOPLE}/threadedComment",
                   "../threadedComments/threadedComment1.xml")


def slicer(package):
    """Adds a slicer for the first column of the table, and a picture of it for older programs."""
    package.add("xl/slicerCaches/slicerCache1.xml", "vnd.ms-excel.slicerCache+xml",
                f'<slicerCacheDefinition xmlns="{X14}" name="Slicer_One" sourceName="One"><extLst>'
                f'<x:ext xmlns:x="{MAIN}" uri="{{2F2917AC-EB37-4324-AD4E-5DD8C200BD13}}" xmlns:x15="{X15}">'
                '<x15:tableSlicerCache tableId="1" column="1"/></x:ext></extLst></slicerCacheDefinition>')
    cache = package.relate("xl/workbook.xml", f"{SLICERS}/slicerCache", "slicerCaches/slicerCache1.xml")
    package.replace("xl/workbook.xml", "</workbook>", '<extLst><ext uri="{46BE6895-7355-4a93-B00E-2C351335B9C9}" '
                    f'xmlns:x15="{X15}"><x15:slicerCaches xmlns:x14="{X14}"><x14:slicerCache r:id="{cache}"/>'
                    "</x15:slicerCaches></ext></extLst></workbook>")
    package.add("xl/slicers/slicer1.xml", "vnd.ms-excel.slicer+xml",
                f'<slicers xmlns="{X14}"><slicer name="One" cache="Slicer_One" caption="One" rowHeight="241300"/>'
                "</slicers>")
    own = package.relate("xl/worksheets/sheet1.xml", f"{SLICERS}/slicer", "../slicers/slicer1.xml")
    package.replace("xl/worksheets/sheet1.xml", "</worksheet>",
                    '<extLst><ext uri="{3A4CF648-6AED-40f4-86FF-DC5316D8AED3}" '
                    f'xmlns:x14="{X14}"><x14:slicerList><x14:slicer r:id="{own}"/></x14:slicerList></ext></extLst>'
                    "</worksheet>")
    drawing = "http://schemas.openxmlformats.org/drawingml/2006"
    corner = "<xdr:col>{0}</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>{1}</xdr:row><xdr:rowOff>0</xdr:rowOff>"
    look = ('<xdr:spPr><a:xfrm><a:off x="0" y="0"/><a:ext cx="1828800" cy="2000000"/></a:xfrm><a:prstGeom prst="rect">'
            "<a:avLst/></a:prstGeom></xdr:spPr>")
    package.replace("xl/drawings/drawing1.xml", "</xdr:wsDr>", (
        '<xdr:twoCellAnchor editAs="oneCell"><xdr:from>' + corner.format(11, 1) + "</xdr:from><xdr:to>" +
        corner.format(14, 12) + '</xdr:to><mc:AlternateContent xmlns:mc='
        '"http://schemas.openxmlformats.org/markup-compatibility/2006" xmlns:sle15='
        '"http://schemas.microsoft.com/office/drawing/2012/slicer"><mc:Choice Requires="sle15">'
        '<xdr:graphicFrame macro="">'
        '<xdr:nvGraphicFramePr><xdr:cNvPr id="90" name="One"/><xdr:cNvGraphicFramePr/></xdr:nvGraphicFramePr><xdr:xfrm>'
        '<a:off x="0" y="0"/><a:ext cx="0" cy="0"/></xdr:xfrm><a:graphic><a:graphicData uri='
        '"http://schemas.microsoft.com/office/drawing/2010/slicer"><sle:slicer xmlns:sle='
        '"http://schemas.microsoft.com/office/drawing/2010/slicer" name="One"/></a:graphicData></a:graphic>'
        '</xdr:graphicFrame></mc:Choice><mc:Fallback><xdr:sp macro="" textlink="">'
        '<xdr:nvSpPr><xdr:cNvPr id="0" name=""/>'
        f"<xdr:cNvSpPr/></xdr:nvSpPr>{look}<xdr:txBody><a:bodyPr xmlns:a=\"{drawing}/main\"/><a:p><a:r>"
        "<a:t>a slicer</a:t></a:r></a:p></xdr:txBody></xdr:sp></mc:Fallback></mc:AlternateContent><xdr:clientData/>"
        "</xdr:twoCellAnchor></xdr:wsDr>"))


def beside_cells(package):
    """Adds a chain of calculations, the settings of a printer, and properties and data of the user."""
    cells = "".join(f'<c r="C{row}" i="{sheet}"/>' for sheet in (1, 2) for row in range(2, 10))
    package.add("xl/calcChain.xml", "vnd.openxmlformats-officedocument.spreadsheetml.calcChain+xml",
                f'<calcChain xmlns="{MAIN}">{cells}</calcChain>')
    package.relate("xl/workbook.xml", f"{OFFICE}/relationships/calcChain", "calcChain.xml")
    package.add("xl/printerSettings/printerSettings1.bin",
                "vnd.openxmlformats-officedocument.spreadsheetml.printerSettings", "settings")
    settings = package.relate("xl/worksheets/sheet1.xml", f"{OFFICE}/relationships/printerSettings",
                              "../printerSettings/printerSettings1.bin")
    package.replace("xl/worksheets/sheet1.xml", "</worksheet>",
                    f'<pageSetup paperSize="9" orientation="portrait" r:id="{settings}"/></worksheet>')
    package.entries["customXml/item1.xml"] = b'<data xmlns="urn:ours">kept</data>'
    package.relate("xl/workbook.xml", f"{OFFICE}/relationships/customXml", "../customXml/item1.xml")


# The feature of xlsxwriter that each needs, and what is added.
EXTENSIONS = {"thread": (("comment",), thread), "slicer": (("table", "chart"), slicer),
              "beside cells": (("plain",), beside_cells)}


def extend(path, name):
    package = Package(path)
    EXTENSIONS[name][1](package)
    package.save()
