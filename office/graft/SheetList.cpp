#include "office/graft/SheetList.h"

#include "base/Text.h"
#include "office/embedded/sheet/TreeEdit.h"
#include "office/graft/ExportDifference.h"
#include "office/graft/Refusal.h"
#include "office/model/excel/SheetReference.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace mergeloom::graft {

namespace {

constexpr const char* kWorksheetType =
    "application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml";

/// Elements of a new sheet that do not refer to other parts.
constexpr std::array<std::string_view, 6> kSettings{"sheetFormatPr", "printOptions", "pageMargins",
                                                    "pageSetup",     "headerFooter", "sheetPr"};

/// The workbook part of an original, as a tree.
class BookTree {
  public:
    explicit BookTree(opc::Package& package)
        : package_(package),
          part_(opc::XmlPart::parse(package.readPart(package.mainPart()), package.mainPart(),
                                    package.fileName())) {}

    [[nodiscard]] pugi::xml_node root() const { return part_->root(); }
    [[nodiscard]] std::vector<pugi::xml_node> sheets() const {
        return embedded::childrenNamed(list(), "sheet");
    }
    [[nodiscard]] pugi::xml_node list() const { return embedded::childNamed(root(), "sheets"); }
    [[nodiscard]] std::size_t indexOf(const std::string& name) const {
        const std::vector<pugi::xml_node> all = sheets();
        const auto found =
            std::ranges::find(all, name, [](pugi::xml_node node) { return node.attribute("name").value(); });
        return static_cast<std::size_t>(found - all.begin());
    }
    void store() { package_.writePart(part_->partName(), part_->toXml()); }

  private:
    opc::Package& package_;
    std::unique_ptr<opc::XmlPart> part_;
};

/// Returns the name of the attribute with the id of a sheet's relationship, such as "r:id".
std::string idAttribute(pugi::xml_node sheet) {
    for (const pugi::xml_attribute attribute : sheet.attributes())
        if (std::string_view(attribute.name()).ends_with(":id")) return attribute.name();
    throw Refusal("a sheet was added to a workbook without sheets");
}

/// Increments the index of a sheet in an attribute if a sheet is inserted before it.
void countSheet(pugi::xml_node attributeOwner, const char* name, std::size_t index) {
    pugi::xml_attribute number = attributeOwner.attribute(name);
    if (number && number.as_uint() >= index) number.set_value(number.as_uint() + 1);
}

/// Keeps the active sheet active. Without the attribute it is the first one (CT_BookView, ECMA-376 Part 1,
/// 18.2.30). If another sheet became the active one, Excel would open both as a group.
void countActiveSheet(pugi::xml_node view, std::size_t index) {
    if (!view.attribute("activeTab") && index == 0) view.append_attribute("activeTab").set_value(0);
    countSheet(view, "activeTab", index);
}

/// Returns the views of a workbook before a sheet is inserted. Adds one if its active sheet has to be noted.
std::vector<pugi::xml_node> viewsOf(const BookTree& book, std::size_t index) {
    pugi::xml_node root = book.root();
    pugi::xml_node views = embedded::childNamed(root, "bookViews");
    if (!views && index == 0)
        views = root.insert_child_before(embedded::qualifiedName(root, "bookViews").c_str(), book.list());
    if (!embedded::childNamed(views, "workbookView") && index == 0)
        views.prepend_child(embedded::qualifiedName(root, "workbookView").c_str());
    return embedded::childrenNamed(views, "workbookView");
}

void countSheets(const BookTree& book, std::size_t index) {
    for (const pugi::xml_node name :
         embedded::childrenNamed(embedded::childNamed(book.root(), "definedNames"), "definedName"))
        countSheet(name, "localSheetId", index);
    for (const pugi::xml_node view : viewsOf(book, index)) {
        countActiveSheet(view, index);
        countSheet(view, "firstSheet", index);
    }
}

std::string emptySheet(const ExportedSheet& sheet, std::string_view spreadsheetNamespace) {
    pugi::xml_document document;
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version").set_value("1.0");
    declaration.append_attribute("encoding").set_value("UTF-8");
    declaration.append_attribute("standalone").set_value("yes");
    pugi::xml_node root = document.append_child("worksheet");
    root.append_attribute("xmlns").set_value(std::string(spreadsheetNamespace).c_str());
    for (const pugi::xml_node child : sheet.part().root().children()) {
        const std::string_view name = child.name();
        if (name == "sheetData") root.append_child("sheetData");
        if (std::ranges::find(kSettings, name) != kSettings.end()) root.append_copy(child);
    }
    return opc::packageXmlText(document);
}

void checkIsPlain(const ExportedSheet& sheet) {
    for (const auto& [name, content] : sheet.sections) {
        const bool isSetting = name == "view" || name == "state" ||
                               std::ranges::find(kSettings, std::string_view(name)) != kSettings.end();
        if (!isSetting && !content.empty())
            throw Refusal("a sheet with more than cells was added", sheet.name());
    }
    if (!sheet.objects.empty()) throw Refusal("a sheet with more than cells was added", sheet.name());
}

/// Returns true for a character that shows that no sheet's name begins after it: it is in the middle of a
/// name, as "DATA" ends like "A", or ends the number of another workbook. All characters outside of ASCII may
/// be in names.
bool isInName(char character) {
    const bool isLetterOrDigit = std::isalnum(static_cast<unsigned char>(character)) != 0;
    return isLetterOrDigit || static_cast<signed char>(character) < 0 ||
           std::string_view("_.\\]'").find(character) != std::string_view::npos;
}

/// Finds references to a sheet outside of the cells' formulas.
class SheetReferences {
  public:
    explicit SheetReferences(const std::string& sheet)
        : name_(foldCase(sheet)),
          spellings_{foldCase(excel::writtenSheetName(sheet)) + "!",
                     "'" + replaceAll(name_, "'", "''") + "'!"} {}

    /// Returns true if a formula or an attribute below the node refers to the sheet. Texts and stored results
    /// may contain anything.
    [[nodiscard]] bool areBelow(pugi::xml_node node) const {
        const std::string_view name = opc::localName(node);
        if (name == "t" || name == "v") return false;
        for (const pugi::xml_attribute attribute : node.attributes())
            if (isReference(attribute)) return true;
        return std::ranges::any_of(node.children(), [&](pugi::xml_node child) {
            return child.type() == pugi::node_element ? areBelow(child) : isIn(child.value());
        });
    }

  private:
    /// The sources of pivot tables contain the name alone.
    [[nodiscard]] bool isReference(pugi::xml_attribute attribute) const {
        const std::string_view name = attribute.name();
        return isIn(attribute.value()) || (name == "sheet" && foldCase(attribute.value()) == name_);
    }
    [[nodiscard]] bool isIn(std::string_view text) const {
        if (text.find('!') == std::string_view::npos) return false;
        const std::string folded = foldCase(text);
        return std::ranges::any_of(spellings_, [&](const std::string& spelling) {
            std::size_t at = folded.find(spelling);
            while (at != std::string::npos && at > 0 && isInName(folded[at - 1]))
                at = folded.find(spelling, at + 1);
            return at != std::string::npos;
        });
    }

    std::string name_;
    std::array<std::string, 2> spellings_;
};

std::string freePart(const opc::Package& package) {
    for (int number = 1;; ++number) {
        std::string name = "/xl/worksheets/sheet" + std::to_string(number) + ".xml";
        if (!package.hasPart(name)) return name;
    }
}

}  // namespace

std::vector<SheetPair> pairSheets(const BookExport& former, const BookExport& now) {
    const auto nameOf = [](const ExportedSheet& sheet) { return sheet.name(); };
    std::vector<SheetPair> pairs;
    auto next = former.sheets().begin();
    const bool isSameCount = former.sheets().size() == now.sheets().size();
    for (const ExportedSheet& sheet : now.sheets()) {
        const bool isHere = next != former.sheets().end() && next->name() == sheet.name();
        const bool isElsewhere =
            !isHere && std::ranges::find(former.sheets(), sheet.name(), nameOf) != former.sheets().end();
        if (isElsewhere) throw Refusal("sheets were moved or removed", sheet.name());
        const bool isRenamed = !isHere && isSameCount && next != former.sheets().end() &&
                               std::ranges::find(now.sheets(), next->name(), nameOf) == now.sheets().end();
        pairs.push_back({isHere || isRenamed ? &*next : nullptr, &sheet});
        if (isHere || isRenamed) ++next;
    }
    if (next != former.sheets().end()) throw Refusal("sheets were moved or removed", next->name());
    return pairs;
}

void addSheet(opc::Package& original, const ExportedSheet& sheet, const std::string& before) {
    checkIsPlain(sheet);
    BookTree book(original);
    const std::vector<pugi::xml_node> sheets = book.sheets();
    const std::size_t index = before.empty() ? 0 : book.indexOf(before) + 1;
    if (sheets.empty() || index > sheets.size())
        throw Refusal("LibreOffice reads the sheets differently from the file", before);
    if (original.conformance() == opc::Conformance::Strict)
        throw Refusal("a sheet was added to a workbook of the strict kind");
    const std::string partName = freePart(original);
    original.addPart(partName, kWorksheetType,
                     emptySheet(sheet, "http://schemas.openxmlformats.org/spreadsheetml/2006/main"));
    unsigned id = 0;
    for (const pugi::xml_node other : sheets)
        id = std::max(id, other.attribute("sheetId").as_uint());
    countSheets(book, index);
    // A copy has the declarations of namespaces that another sheet has.
    pugi::xml_node list = book.list();
    pugi::xml_node node = index == 0 ? list.insert_copy_before(sheets[0], sheets[0])
                                     : list.insert_copy_after(sheets[index - 1], sheets[index - 1]);
    node.remove_attribute("state");
    node.attribute("name").set_value(sheet.name().c_str());
    node.attribute("sheetId").set_value(id + 1);
    node.attribute(idAttribute(node).c_str())
        .set_value(original.relationshipsOf(original.mainPart())
                       .addPart(opc::officeRelationshipType("worksheet", original.conformance()), partName)
                       .c_str());
    book.store();
}

void renameSheet(opc::Package& original, const std::string& former, const std::string& now) {
    BookTree book(original);
    const std::vector<pugi::xml_node> sheets = book.sheets();
    const std::size_t index = book.indexOf(former);
    if (index == sheets.size())
        throw Refusal("LibreOffice reads the sheets differently from the file", former);
    pugi::xml_node(sheets[index]).attribute("name").set_value(now.c_str());
    book.store();
    const SheetReferences references(former);
    for (const std::string& part : original.partNames()) {
        // The document's properties contain a copy of the sheets' names.
        if (!isXml(part) || part.starts_with("/docProps/")) continue;
        if (references.areBelow(
                opc::XmlPart::parse(original.readPart(part), part, original.fileName())->root()))
            throw Refusal("a sheet was renamed to which charts, rules or pivot tables refer", former);
    }
}

}  // namespace mergeloom::graft
