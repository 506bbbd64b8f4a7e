#include "office/embedded/letters/PartPreparation.h"
#include "office/embedded/letters/Token.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <string>
#include <string_view>

/// Makes the ids of repeated rows and records unique in a document.
namespace mergeloom::embedded {

namespace {

bool isCommentMark(std::string_view name) {
    return name == "commentRangeStart" || name == "commentRangeEnd" || name == "commentReference";
}

/// Returns true for the elements of tracked changes, whose ids are those of annotations (ECMA-376 Part 1,
/// 17.13.5).
bool isTrackedChange(std::string_view name) {
    return name == "ins" || name == "del" || name == "moveFrom" || name == "moveTo" || name == "cellIns" ||
           name == "cellDel" || name == "cellMerge" || name.ends_with("PrChange") ||
           name == "tblGridChange" || name == "numberingChange";
}

/// Returns true for two marks that share an id.
bool isRangeMark(std::string_view name) {
    return name.ends_with("RangeStart") || name.ends_with("RangeEnd") || name == "permStart" ||
           name == "permEnd";
}

/// Returns true for a shape of VML (ECMA-376 Part 4, 19.1), whose id must be unique in a document.
bool isShape(pugi::xml_node element) {
    const std::string_view name = element.name();
    return name.starts_with("v:") && name != "v:shapetype" && element.attribute("id");
}

/// Returns true if an attribute is an id that must be unique in a document.
bool isParagraphId(std::string_view name) {
    return name.ends_with(":paraId") || name.ends_with(":textId");
}

}  // namespace

void PartPreparation::markRepeated() {
    for (const PartBookmark& bookmark : bookmarks_)
        markBookmark(bookmark);
    const bool isForAll = context_.settings.use == letters::LetterUse::OneForAll;
    if (isForAll || !repeatedNodes_.empty()) makeRepeatable(part_.root());
}

void PartPreparation::markBookmark(const PartBookmark& bookmark) {
    const bool isForAll = context_.settings.use == letters::LetterUse::OneForAll;
    const bool isPlace =
        placesByName_.contains(bookmark.name) ||
        std::ranges::find(context_.marked.tables, bookmark.name, &MarkedTable::name) !=
            context_.marked.tables.end() ||
        std::ranges::find(context_.marked.optionals, bookmark.name) != context_.marked.optionals.end();
    for (const pugi::xml_node mark : {bookmark.start, bookmark.end}) {
        if (!mark) continue;
        const bool isShared = context_.settings.marks == letters::RecordMarks::Bookmarks;
        if (isForAll && (isPlace || isShared)) {
            part_.detach(mark);
        } else if (isForAll || isRepeated(mark)) {
            markOnce(mark);
        }
    }
}

void PartPreparation::markOnce(pugi::xml_node node) {
    insertBefore(node, {TokenKind::Once, once_.size()});
    once_.push_back(xmlOf(node));
    part_.detach(node);
}

/// Makes the repeated elements below a node repeatable: ids become tokens, and content that may occur only
/// once is marked.
void PartPreparation::makeRepeatable(pugi::xml_node node) {
    const bool isForAll = context_.settings.use == letters::LetterUse::OneForAll;
    for (pugi::xml_node child = node.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        const bool isComment = isCommentMark(opc::localName(child));
        if (!isForAll && !isRepeated(child)) {
            makeRepeatable(child);
        } else if (isComment && context_.repeatsComments) {
            markId(child.attribute(names_.attribute("id").c_str()), TokenKind::NoteId);
        } else if (isComment || isRepeatedShapeType(child)) {
            markOnce(child);
        } else {
            makeElementRepeatable(child);
            makeRepeatable(child);
        }
        child = next;
    }
}

/// Returns true for a type of shapes, which a document defines only once. Each copy of a header is a separate
/// part.
bool PartPreparation::isRepeatedShapeType(pugi::xml_node element) const {
    return kind_ == PartKind::Body && std::string_view(element.name()) == "v:shapetype";
}

void PartPreparation::makeElementRepeatable(pugi::xml_node element) {
    const std::string_view name = element.name();
    if (name.ends_with(":docPr")) {
        markId(element.attribute("id"), TokenKind::Id);
    }
    // An embedded object refers to its shape.
    const bool isOwnShape = kind_ == PartKind::Body && isShape(element) &&
                            !names_.ancestor(element, opc::WordTag::EmbeddedObject);
    if (isOwnShape) {
        markId(element.attribute("id"), TokenKind::ShapeId);
        element.remove_attribute("o:spid");
    }
    if (isTrackedChange(opc::localName(element))) {
        markId(element.attribute(names_.attribute("id").c_str()), TokenKind::AnnotationId);
    }
    if (isRangeMark(opc::localName(element))) {
        markId(element.attribute(names_.attribute("id").c_str()), TokenKind::NoteId);
    }
    const bool isForAll = context_.settings.use == letters::LetterUse::OneForAll;
    const bool hasOwnLists = isForAll && kind_ == PartKind::Body;
    if (hasOwnLists && names_.tagOf(element) == opc::WordTag::Paragraph)
        context_.styles.copyListTo(element, names_, context_.lists);
    if (hasOwnLists && name == names_.element("numId")) {
        const pugi::xml_attribute id = element.attribute(names_.attribute("val").c_str());
        if (context_.lists.use(id.value())) markId(id, TokenKind::ListId);
    }
    if (name == names_.element("sdtPr")) element.remove_child(names_.element("id").c_str());
    for (pugi::xml_attribute attribute = element.first_attribute(); attribute;) {
        const pugi::xml_attribute following = attribute.next_attribute();
        if (isParagraphId(attribute.name())) element.remove_attribute(attribute);
        attribute = following;
    }
}

bool PartPreparation::isRepeated(pugi::xml_node node) const {
    if (repeatedNodes_.empty()) return false;
    for (pugi::xml_node around = node; around; around = around.parent()) {
        if (repeatedNodes_.contains(around.hash_value())) return true;
    }
    return false;
}

}  // namespace mergeloom::embedded
