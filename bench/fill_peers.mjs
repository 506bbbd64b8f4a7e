// Fills a template with libraries of npm: node fill_peers.mjs LIBRARY TEMPLATE VALUES COUNT LINES OUTPUT. VALUES is a
// file of JSON with the names of the places and those of the lines. OUTPUT is a folder for a file for each record, or a
// file for all of them; that needs a template with a loop around it.
import { readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";

const [library, template, values, count, lines, output] = process.argv.slice(2);
const names = JSON.parse(readFileSync(values, "utf8"));
const bytes = readFileSync(template);

function recordOf(number) {
    const line = Object.fromEntries(names.lines.map((name) => [name, `value ${number}`]));
    return { ...Object.fromEntries(names.places.map((name) => [name, `value ${number}`])),
             lines: Array.from({ length: Number(lines) }, () => line) };
}

async function fillerOf() {
    if (library === "easy-template-x") {
        const { TemplateHandler } = await import("easy-template-x");
        const handler = new TemplateHandler();
        return (data) => handler.process(bytes, data);
    }
    const { default: Docxtemplater } = await import("docxtemplater");
    const { default: PizZip } = await import("pizzip");
    return (data) => {
        const document = new Docxtemplater(new PizZip(bytes), { paragraphLoop: true });
        document.render(data);
        return document.getZip().generate({ type: "nodebuffer", compression: "DEFLATE" });
    };
}

const fill = await fillerOf();
if (output.endsWith(".docx")) {
    const records = Array.from({ length: Number(count) }, (_, number) => recordOf(number));
    writeFileSync(output, await fill({ records }));
} else {
    for (let number = 0; number < Number(count); ++number)
        writeFileSync(join(output, `${number}.docx`), await fill(recordOf(number)));
}
