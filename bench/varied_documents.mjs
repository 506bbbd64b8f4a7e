// Makes documents with the library docx of npm: node varied_documents.mjs FOLDER PICTURE. Each feature gets a document of
// its own, and each following three features share one. Prints "1" or "0" and the name of each file: 1 for content
// controls and tracked changes.
import { readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import * as docx from "docx";

const [folder, picture] = process.argv.slice(2);
const { Paragraph, TextRun } = docx;
const words = "street invoice letter total harbour order between remark price delivery thanks customer".split(" ");
let state = 7;

/// Returns a number below the limit; the same ones in each run.
function chance(limit) {
    state = (state * 48271) % 2147483647;
    return state % limit;
}

function text() {
    return Array.from({ length: 4 + chance(12) }, () => words[chance(words.length)]).join(" ");
}

const plain = () => new Paragraph(text());
const withRuns = (...children) => new Paragraph({ children: [new TextRun(text() + " "), ...children] });
const cell = (...children) => new docx.TableCell({ children });
const table = (rows) => new docx.Table({
    width: { size: 100, type: docx.WidthType.PERCENTAGE },
    rows: rows.map((cells) => new docx.TableRow({ children: cells })),
});
const date = "2024-05-06T07:08:09Z";
const change = { author: "A", date, id: 1 };

/// Return the content of the section, and other parts of the document, for each feature.
const features = {
    headings: () => ({ body: [1, 2, 3].flatMap((level) => [
        new Paragraph({ text: text(), heading: docx.HeadingLevel[`HEADING_${level}`] }), plain()]) }),
    table: () => ({ body: [table([[cell(plain()), cell(plain())], [cell(plain()), cell(plain())]]), plain()] }),
    nested: () => ({ body: [table([[cell(table([[cell(plain())]]), plain()), cell(plain())]]), plain()] }),
    spans: () => ({ body: [table([[new docx.TableCell({ children: [plain()], columnSpan: 2 })],
                                  [cell(plain()), cell(plain())]]), plain()] }),
    looks: () => ({ body: [withRuns(new TextRun({ text: text(), bold: true, color: "1F4E79", font: "Georgia" }),
                                    new TextRun({ text: "2", superScript: true, highlight: "yellow" }))] }),
    link: () => ({ body: [withRuns(new docx.ExternalHyperlink({
        link: "https://example.org/", children: [new TextRun({ text: "there", style: "Hyperlink" })] }))] }),
    bookmark: () => ({ body: [withRuns(new docx.Bookmark({ id: "here", children: [new TextRun("here")] }),
                                       new TextRun(" goes on"))] }),
    numbered: () => ({ body: [0, 0, 1, 0].map((level) => new Paragraph({
        text: text(), numbering: { reference: "list", level } })) }),
    bullets: () => ({ body: [0, 1, 0].map((level) => new Paragraph({ text: text(), bullet: { level } })) }),
    picture: () => ({ body: [withRuns(new docx.ImageRun({
        type: "png", data: readFileSync(picture), transformation: { width: 90, height: 30 } }))] }),
    floating: () => ({ body: [withRuns(new docx.ImageRun({
        type: "png", data: readFileSync(picture), transformation: { width: 90, height: 30 },
        floating: { horizontalPosition: { offset: 2014400 }, verticalPosition: { offset: 2014400 } } }))] }),
    header: () => ({ section: {
        headers: { default: new docx.Header({ children: [plain()] }) },
        footers: { default: new docx.Footer({ children: [new Paragraph({ children: [
            new TextRun({ children: ["Page ", docx.PageNumber.CURRENT, " of ", docx.PageNumber.TOTAL_PAGES] })] })] }) } } }),
    footnote: () => ({ body: [withRuns(new docx.FootnoteReferenceRun(1))],
                       document: { footnotes: { 1: { children: [plain()] } } } }),
    comment: () => ({ body: [new Paragraph({ children: [
        new docx.CommentRangeStart(0), new TextRun("noted"), new docx.CommentRangeEnd(0),
        new TextRun({ children: [new docx.CommentReference(0)] })] })],
        document: { comments: { children: [{ id: 0, author: "A", date: new Date(date), children: [plain()] }] } } }),
    contents: () => ({ body: [new docx.TableOfContents("Contents", { headingStyleRange: "1-3" }), plain()] }),
    changes: () => ({ hard: true, body: [withRuns(new docx.InsertedTextRun({ text: "new ", ...change }),
                                                  new docx.DeletedTextRun({ text: "old", ...change, id: 2 }))] }),
    checkbox: () => ({ hard: true, body: [withRuns(new docx.CheckBox({ checked: true, alias: "agreed" }))] }),
    tabs: () => ({ body: [new Paragraph({ tabStops: [{ type: docx.TabStopType.RIGHT, position: 8000 }],
                                          children: [new TextRun("left\tright")] })] }),
    columns: () => ({ section: { properties: { column: { count: 2, space: 708 } } } }),
    symbol: () => ({ body: [withRuns(new docx.SymbolRun("F04A"), new TextRun(" after"))] }),
    formula: () => ({ body: [withRuns(new docx.Math({ children: [new docx.MathFraction({
        numerator: [new docx.MathRun("1")], denominator: [new docx.MathRun("n")] })] }))] }),
    breaks: () => ({ body: [withRuns(new docx.PageBreak()), withRuns(new TextRun({ text: "next line", break: 1 }))] }),
    borders: () => ({ body: [new Paragraph({
        text: text(), border: { bottom: { style: docx.BorderStyle.SINGLE, size: 6, color: "auto", space: 1 } },
        shading: { type: docx.ShadingType.CLEAR, fill: "DDEEFF" } })] }),
};

function sectionsOf(parts) {
    const own = Object.assign({}, ...parts.map((part) => part.section ?? {}));
    const body = parts.flatMap((part) => [...Array.from({ length: 6 }, plain), ...(part.body ?? [])]);
    const children = [...body, ...Array.from({ length: 6 }, plain)];
    const first = { children: [plain(), plain()] };
    return chance(3) === 0 ? [first, { ...own, children }] : [{ ...own, children }];
}

async function make(names) {
    const parts = names.map((name) => features[name]());
    const made = new docx.Document({
        ...Object.assign({}, ...parts.map((part) => part.document ?? {})),
        numbering: { config: [{ reference: "list", levels: [0, 1].map((level) => ({
            level, format: docx.LevelFormat.DECIMAL, text: `%${level + 1}.`, alignment: docx.AlignmentType.START })) }] },
        sections: sectionsOf(parts),
    });
    const file = `npm-${names.join("-")}.docx`;
    writeFileSync(join(folder, file), await docx.Packer.toBuffer(made));
    console.log(parts.some((part) => part.hard) ? "1" : "0", file);
}

const names = Object.keys(features);
for (const name of names)
    await make([name]);
for (let at = 0; at + 3 <= names.length; at += 3)
    await make(names.slice(at, at + 3));
