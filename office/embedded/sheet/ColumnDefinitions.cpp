#include "office/embedded/sheet/ColumnDefinitions.h"

#include "office/embedded/sheet/XmlScanner.h"
#include "office/model/excel/CellAddress.h"

#include <algorithm>
#include <utility>

namespace mergeloom::embedded {

ColumnDefinitions::ColumnDefinitions(const std::string& xml, std::string listName, std::string elementName)
    : listName_(std::move(listName)), elementName_(std::move(elementName)) {
    XmlScanner scanner(xml);
    while (scanner.next()) {
        if (scanner.kind() == TagKind::End || scanner.name() != elementName_) continue;
        const int first = findNumber(scanner.attributes(), "min").value_or(0);
        const int last =
            std::min(findNumber(scanner.attributes(), "max").value_or(first), excel::kLastColumn);
        if (first < 1 || first > last) continue;
        put({first, last, XmlTag(scanner.tag())});
    }
}

std::optional<ColumnDefinition> ColumnDefinitions::find(int column) const {
    const auto found = definitions_.lower_bound(column);
    if (found == definitions_.end() || found->second.first > column) return {};
    return found->second;
}

ColumnDefinition ColumnDefinitions::newDefinition(int column) const {
    return {column, column, XmlTag("<" + elementName_ + " min=\"\" max=\"\"/>")};
}

void ColumnDefinitions::put(const ColumnDefinition& definition) {
    erase(definition.first, definition.last);
    add(definition.first, definition.last, definition.tag);
}

void ColumnDefinitions::erase(int first, int last) {
    auto next = definitions_.lower_bound(first);
    while (next != definitions_.end() && next->second.first <= last) {
        const ColumnDefinition former = std::move(next->second);
        definitions_.erase(next);
        if (former.first < first) add(former.first, first - 1, former.tag);
        if (former.last > last) add(last + 1, former.last, former.tag);
        next = definitions_.upper_bound(former.last);
    }
}

std::string ColumnDefinitions::toXml() const {
    if (definitions_.empty()) return {};
    std::string xml = "<" + listName_ + ">";
    for (const auto& [last, definition] : definitions_) {
        XmlTag tag = definition.tag;
        tag.set("min", std::to_string(definition.first));
        tag.set("max", std::to_string(last));
        xml += tag.emptyTag();
    }
    return xml + "</" + listName_ + ">";
}

void ColumnDefinitions::add(int first, int last, const XmlTag& tag) {
    definitions_.insert_or_assign(last, ColumnDefinition{first, last, tag});
}

}  // namespace mergeloom::embedded
