#include "office/graft/WholeMarks.h"

#include "office/opc/XmlPart.h"

#include <map>
#include <pugixml.hpp>
#include <string_view>
#include <vector>

namespace mergeloom::graft {

namespace {

constexpr std::string_view kStart = "w:bookmarkStart";
constexpr std::string_view kEnd = "w:bookmarkEnd";

/// The tags of one bookmark in the order of the document.
struct Marks {
    std::vector<pugi::xml_node> starts;
    std::vector<pugi::xml_node> ends;
};

/// Returns true if a node repeats a text box for programs that cannot show it, with the names of its
/// bookmarks.
bool isCopy(pugi::xml_node node) {
    while (node && node.name() != std::string_view("mc:Fallback"))
        node = node.parent();
    return static_cast<bool>(node);
}

/// Collects the bookmarks of a part by their names.
class MarkCollector final : public pugi::xml_tree_walker {
  public:
    bool for_each(pugi::xml_node& node) override {
        const std::string_view name = node.name();
        const std::string id = node.attribute("w:id").value();
        if ((name == kStart || name == kEnd) && isCopy(node)) return true;
        if (name == kStart) {
            marks[node.attribute("w:name").value()].starts.push_back(node);
            names_[id] = node.attribute("w:name").value();
        } else if (name == kEnd && names_.contains(id)) {
            marks[names_[id]].ends.push_back(node);
        }
        return true;
    }

    std::map<std::string, Marks> marks;

  private:
    std::map<std::string, std::string> names_;
};

bool isMarkOrProperties(pugi::xml_node node) {
    const std::string_view name = node.name();
    return name == kStart || name == kEnd || name.ends_with("Pr") || name == "w:tblGrid";
}

pugi::xml_node tableAround(pugi::xml_node node) {
    while (node && node.name() != std::string_view("w:tbl"))
        node = node.parent();
    return node;
}

/// Returns true if a table has no content before a node in it, or none after it.
bool isFirstIn(pugi::xml_node table, pugi::xml_node node) {
    for (; node != table; node = node.parent())
        for (pugi::xml_node before = node.previous_sibling(); before; before = before.previous_sibling())
            if (!isMarkOrProperties(before)) return false;
    return true;
}

bool isLastIn(pugi::xml_node table, pugi::xml_node node) {
    for (; node != table; node = node.parent())
        for (pugi::xml_node after = node.next_sibling(); after; after = after.next_sibling())
            if (!isMarkOrProperties(after)) return false;
    return true;
}

/// Returns true if anything was changed.
bool makeWhole(Marks& marks) {
    if (marks.starts.empty() || marks.ends.empty()) return false;
    bool isChanged = marks.starts.size() > 1 || marks.ends.size() > 1;
    const pugi::xml_node start = marks.starts.front();
    pugi::xml_node end = marks.ends.back();
    for (std::size_t i = 1; i < marks.starts.size(); ++i)
        marks.starts[i].parent().remove_child(marks.starts[i]);
    for (std::size_t i = 0; i + 1 < marks.ends.size(); ++i)
        marks.ends[i].parent().remove_child(marks.ends[i]);
    end.attribute("w:id").set_value(start.attribute("w:id").value());
    const pugi::xml_node table = tableAround(end);
    if (table && tableAround(start) == table && isFirstIn(table, start) && isLastIn(table, end)) {
        pugi::xml_node parent = table.parent();
        parent.insert_move_after(end, table);
        isChanged = true;
    }
    return isChanged;
}

}  // namespace

opc::Package packageWithWholeMarks(const std::string& bytes, const std::string& fileName) {
    opc::Package package = opc::Package::read(bytes, fileName);
    for (const std::string& name : package.partNames()) {
        if (!name.starts_with("/word/") || !name.ends_with(".xml")) continue;
        std::string xml = package.readPart(name);
        if (xml.find(kStart) == std::string::npos) continue;
        const auto part = opc::XmlPart::parse(std::move(xml), name, fileName);
        MarkCollector collector;
        part->root().traverse(collector);
        bool isChanged = false;
        for (auto& [mark, tags] : collector.marks)
            isChanged = makeWhole(tags) || isChanged;
        if (isChanged) package.writePart(name, part->toXml());
    }
    return package;
}

}  // namespace mergeloom::graft
