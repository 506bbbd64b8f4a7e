#include "office/embedded/text/FontEditor.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace mergeloom::embedded {

namespace {

/// The properties of a run that come after its size in the schema (ECMA-376 Part 1, 17.3.2.28 and annex A).
constexpr std::array<std::string_view, 15> kAfterSize{
    "highlight", "u",    "effect",          "bdr",        "shd",   "fitText",  "vertAlign", "rtl", "cs",
    "em",        "lang", "eastAsianLayout", "specVanish", "oMath", "rPrChange"};

bool comesAfterSize(pugi::xml_node property) {
    return std::find(kAfterSize.begin(), kAfterSize.end(), opc::localName(property)) != kAfterSize.end();
}

}  // namespace

void FontEditor::setSize(CharacterPosition start, CharacterPosition end, int halfPoints) {
    if (start == end) return;
    editor_.splitRun(start);
    editor_.splitRun(end);
    pugi::xml_node lastRun;
    for (Item* item = story_.items().itemAt(start); item; item = ItemTree::next(item)) {
        if (!item->takesPlace()) continue;
        if (story_.positionOf(item) >= end) break;
        if (item->kind == ItemKind::ParagraphMark) {
            setMarkSize(item->node, halfPoints);
            continue;
        }
        const pugi::xml_node run = item->node.parent();
        if (run == lastRun || story_.names().tagOf(run) != opc::WordTag::Run) continue;
        setRunSize(run, halfPoints);
        lastRun = run;
    }
}

void FontEditor::setRunSize(pugi::xml_node run, int halfPoints) {
    writeSize(replaceProperties(run, opc::WordTag::RunProperties, "rPr"), halfPoints);
}

void FontEditor::setMarkSize(pugi::xml_node paragraph, int halfPoints) {
    const pugi::xml_node properties = replaceProperties(paragraph, opc::WordTag::ParagraphProperties, "pPr");
    pugi::xml_node mark = story_.names().child(properties, opc::WordTag::RunProperties);
    if (!mark) {
        // Only the section and the record of a change come after the mark's formatting.
        const pugi::xml_node last = properties.last_child();
        const pugi::xml_node section = story_.names().child(properties, opc::WordTag::SectionProperties);
        const bool changed = std::string_view(last.name()).ends_with("pPrChange");
        const pugi::xml_node next = section ? section : changed ? last : pugi::xml_node();
        const std::string name = story_.names().element("rPr");
        mark = next ? pugi::xml_node(properties).insert_child_before(name.c_str(), next)
                    : pugi::xml_node(properties).append_child(name.c_str());
    }
    writeSize(mark, halfPoints);
}

pugi::xml_node FontEditor::replaceProperties(pugi::xml_node element, opc::WordTag tag,
                                             std::string_view name) {
    const pugi::xml_node former = story_.names().child(element, tag);
    const pugi::xml_node replaced = former ? elementFactory_.copy(former) : elementFactory_.makeElement(name);
    if (former) journal_.remove(story_.part(), former);
    journal_.move(story_.part(), replaced, element, {});
    return replaced;
}

void FontEditor::writeSize(pugi::xml_node runProperties, int halfPoints) {
    const opc::WordNames& names = story_.names();
    pugi::xml_node next;
    for (const pugi::xml_node child : runProperties.children()) {
        if (!next && comesAfterSize(child)) next = child;
    }
    for (const char* local : {"sz", "szCs"}) {
        const std::string name = names.element(local);
        runProperties.remove_child(name.c_str());
        pugi::xml_node size = next ? runProperties.insert_child_before(name.c_str(), next)
                                   : runProperties.append_child(name.c_str());
        size.append_attribute(names.attribute("val").c_str()) = halfPoints;
    }
}

}  // namespace mergeloom::embedded
