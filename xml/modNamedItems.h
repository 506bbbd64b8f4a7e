#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The words of the structure document and of the kinds of drop. Other code looks up words by their numbers
/// and numbers by words here.
namespace mergeloom {

enum class NamedItemList : std::int32_t {
    StructureElements,
    Attributes,
    ControlTypes,
    DropKinds,
    Views,
    DefaultViews
};

enum class StructureElement : std::int32_t {
    Unknown = -2,
    Table = 0,
    Query,
    Form,
    Structure,
    Sections,
    Section,
    Controls,
    Control,
    Data,
    Records,
    Record,
    DisplayValue,
    BoundValue,
    Page,
    Image,
    RichText,
    PlainText
};

enum class Attribute : std::int32_t {
    Unknown = -2,
    Name = 0,
    Caption,
    ControlType,
    CurrentView,
    Number,
    HasRecordset,
    ControlSource,
    DefaultView,
    Section,
    SelTop,
    Image,
    TextFormat
};

enum class ControlType : std::int32_t {
    Unknown = -2,
    Textbox = 0,
    Combobox,
    Listbox,
    OptionGroup,
    BoundObjectFrame,
    Checkbox,
    ToggleButton,
    OptionButton,
    Subform,
    TabControl,
    CustomControl,
    Attachment
};

enum class DropKind : std::int32_t {
    Unknown = -2,
    Table = 0,
    Query,
    Form,
    Control,
    Label,
    Value,
    DisplayValue,
    BoundValue,
    LabelAndValue,
    OptionalSpace,
    OptionalCarriageReturn,
    Image,
    LabelAndImage
};

enum class View : std::int32_t {
    Unknown = -2,
    Design = 0,
    Form,
    Datasheet,
    PivotTable,
    PivotChart,
    Preview,
    Report,
    Layout
};

enum class DefaultView : std::int32_t {
    Unknown = -2,
    SingleForm = 0,
    ContinuousForm,
    Datasheet,
    PivotTable,
    PivotChart,
    SplitForm
};

/// Return the item of a list by its index. The index -1 and the one past the last item return an empty text;
/// any other index without an item raises kSubscriptOutOfRange.
std::string StructureElementName(std::int32_t index);
std::string AttributeName(std::int32_t index);
std::string ControlTypeName(std::int32_t index);
std::string DropKindName(std::int32_t index);
std::string ViewName(std::int32_t index);

/// Returns the index of the item that equals a name, regardless of ASCII case; "Attachment" counts as
/// "BoundObjectFrame" among the control types. Returns 0 for a name that is empty or holds ";", -2 for any
/// other that the list lacks.
std::int32_t NamedItemIndex(std::int32_t listKind, std::string_view name);

/// Returns the character U+200D.
std::string ZeroWidthJoiner();

inline std::string StructureElementName(StructureElement element) {
    return StructureElementName(static_cast<std::int32_t>(element));
}
const std::string& AttributeName(Attribute attribute);
inline std::string ControlTypeName(ControlType type) {
    return ControlTypeName(static_cast<std::int32_t>(type));
}
inline std::string DropKindName(DropKind kind) {
    return DropKindName(static_cast<std::int32_t>(kind));
}

inline std::int32_t NamedItemIndex(NamedItemList list, std::string_view name) {
    return NamedItemIndex(static_cast<std::int32_t>(list), name);
}
inline StructureElement structureElementOf(std::string_view name) {
    return static_cast<StructureElement>(NamedItemIndex(NamedItemList::StructureElements, name));
}
inline ControlType controlTypeOf(std::string_view name) {
    return static_cast<ControlType>(NamedItemIndex(NamedItemList::ControlTypes, name));
}
inline DropKind dropKindOf(std::string_view name) {
    return static_cast<DropKind>(NamedItemIndex(NamedItemList::DropKinds, name));
}

}  // namespace mergeloom
