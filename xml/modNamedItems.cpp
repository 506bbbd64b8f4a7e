#include "xml/modNamedItems.h"

#include "base/AutomationError.h"
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <vector>

namespace mergeloom {

namespace {

constexpr char kSeparator = ';';
constexpr std::int32_t kNotInList = -2;

constexpr std::string_view kStructureElements =
    ";Table;Query;Form;Structure;Sections;Section;Controls;Control;Data;Records;Record;DisplayValue;"
    "BoundValue;"
    "Page;Image;RichText;PlainText;";
constexpr std::string_view kAttributes =
    ";Name;Caption;ControlType;CurrentView;Number;HasRecordset;ControlSource;DefaultView;Section;SelTop;"
    "Image;"
    "TextFormat;";
constexpr std::string_view kControlTypes =
    ";Textbox;Combobox;Listbox;OptionGroup;BoundObjectFrame;Checkbox;ToggleButton;OptionButton;Subform;"
    "TabControl;CustomControl;Attachment;";
constexpr std::string_view kDropKinds =
    ";Table;Query;Form;Control;Label;Value;Display Value;Bound Value;Label and Value;Optional Space;"
    "Optional Carriage Return;Image;Label and Image;";
constexpr std::string_view kViews = ";Design;Form;Datasheet;PivotTable;PivotChart;Preview;Report;Layout;";
constexpr std::string_view kDefaultViews =
    ";SingleForm;ContinuousForm;Datasheet;PivotTable;PivotChart;SplitForm;";

/// The pieces of a list between its separators: an empty one, the items in order, an empty one. The lists are
/// split only once, since names are looked up by the hundred thousand.
struct NamedItems {
    static constexpr std::size_t kMaxPieces = 19;

    explicit constexpr NamedItems(std::string_view list) {
        for (std::size_t start = 0;; ++count) {
            const std::size_t end = list.find(kSeparator, start);
            pieces[count] = list.substr(start, end - start);
            if (end == std::string_view::npos) break;
            start = end + 1;
        }
        ++count;
    }

    std::array<std::string_view, kMaxPieces> pieces{};
    std::size_t count = 0;
};

constexpr std::array kLists = {
    NamedItems(kStructureElements), NamedItems(kAttributes), NamedItems(kControlTypes),
    NamedItems(kDropKinds),         NamedItems(kViews),      NamedItems(kDefaultViews)};

[[noreturn]] void raiseNotInList() {
    throw AutomationError(kSubscriptOutOfRange, "Subscript out of range");
}

std::string itemName(NamedItemList list, std::int32_t index) {
    const NamedItems& items = kLists[static_cast<std::size_t>(list)];
    // The largest index of 32 bits plus one still fits into 64 bits.
    const std::int64_t piece = std::int64_t{index} + 1;
    if (piece < 0 || piece >= static_cast<std::int64_t>(items.count)) raiseNotInList();
    return std::string(items.pieces[static_cast<std::size_t>(piece)]);
}

}  // namespace

std::string StructureElementName(std::int32_t index) {
    return itemName(NamedItemList::StructureElements, index);
}

std::string AttributeName(std::int32_t index) {
    return itemName(NamedItemList::Attributes, index);
}

const std::string& AttributeName(Attribute attribute) {
    // Several attributes of each of a hundred thousand controls are read, so their names are made once.
    static const std::vector<std::string> names = [] {
        const NamedItems& items = kLists[static_cast<std::size_t>(NamedItemList::Attributes)];
        return std::vector<std::string>(items.pieces.begin() + 1,
                                        items.pieces.begin() + static_cast<std::ptrdiff_t>(items.count) - 1);
    }();
    const auto index = static_cast<std::size_t>(attribute);
    if (index >= names.size()) raiseNotInList();
    return names[index];
}

std::string ControlTypeName(std::int32_t index) {
    return itemName(NamedItemList::ControlTypes, index);
}

std::string DropKindName(std::int32_t index) {
    return itemName(NamedItemList::DropKinds, index);
}

std::string ViewName(std::int32_t index) {
    return itemName(NamedItemList::Views, index);
}

std::int32_t NamedItemIndex(std::int32_t listKind, std::string_view name) {
    if (name.empty() || name.find(kSeparator) != std::string_view::npos) return 0;
    if (listKind < 0 || listKind >= static_cast<std::int32_t>(kLists.size())) return kNotInList;

    const NamedItems& items = kLists[static_cast<std::size_t>(listKind)];
    const auto end = items.pieces.begin() + static_cast<std::ptrdiff_t>(items.count);
    const auto found = std::find_if(items.pieces.begin(), end, [&](std::string_view piece) {
        return piece.size() == name.size() && equalsIgnoringAsciiCase(piece, name);
    });
    if (found == end) return kNotInList;

    const auto index = static_cast<std::int32_t>(found - items.pieces.begin()) - 1;
    const bool attachment = listKind == static_cast<std::int32_t>(NamedItemList::ControlTypes) &&
                            index == static_cast<std::int32_t>(ControlType::Attachment);
    return attachment ? static_cast<std::int32_t>(ControlType::BoundObjectFrame) : index;
}

std::string ZeroWidthJoiner() {
    return "\u200D";
}

}  // namespace mergeloom
