#include "describe/access/FormControls.h"

#include "base/Text.h"
#include "describe/access/AccessFile.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace mergeloom::describe::access {

namespace {

/// The kinds of objects in a design: controls by AcControlType, then the sections.
enum ObjectKind : int {
    kLabel = 100,
    kOptionButton = 105,
    kCheckbox = 106,
    kOptionGroup = 107,
    kToggleButton = 122,
    kDetail = 152
};

/// The sections of a form from kDetail on.
constexpr std::array kSections{FormSection::Detail, FormSection::Header, FormSection::Footer,
                               FormSection::PageHeader, FormSection::PageFooter};

/// The properties by the dispatch identifiers of their members in the object model of Access.
enum PropertyCode : int {
    kBoundColumn = 13,
    kCaption = 17,
    kColumnWidths = 18,
    kName = 20,
    kControlSource = 27,
    kFormat = 38,
    kLinkChildFields = 49,
    kLinkMasterFields = 50,
    kOptionValue = 58,
    kColumnCount = 70,
    kDecimalPlaces = 71,
    kRowSource = 91,
    kRowSourceKind = 92,
    kRowSourceType = 93,
    kDefaultView = 147
};

/// The slots of properties: the source of a form's records, and the object of a subform.
constexpr std::uint32_t kRecordSourceSlot = 220;
constexpr std::uint32_t kSourceObjectSlot = 221;

/// The value of kRowSourceKind for a list of values.
constexpr int kValueList = 1;
constexpr const char* kValueListType = "Value List";
constexpr int kMaxBoundColumn = 1000;
constexpr int kMaxFormatDecimals = 15;  ///< a larger number means that the format decides

std::vector<std::string> fieldsIn(const std::string& text) {
    std::vector<std::string> fields;
    for (const std::string_view field : split(text, ';')) {
        if (!trimBlanks(field).empty()) fields.emplace_back(trimBlanks(field));
    }
    return fields;
}

/// Returns the column that is stored, counted from 1; 0 if the number of the row is stored instead. Designs
/// count from 0, tables from 1.
int boundColumnOf(const DesignObject& object) {
    const int column = object.number(kBoundColumn, 0);
    return column < 0 || column > kMaxBoundColumn ? 0 : column + 1;
}

ListSource listOf(const DesignObject& object) {
    const bool hasValues = object.number(kRowSourceKind, 0) == kValueList;
    return listOfType(hasValues ? kValueListType : object.text(kRowSourceType),
                      {object.text(kRowSource), boundColumnOf(object), object.text(kColumnWidths),
                       ListSource::Kind::Rows, object.number(kColumnCount, 1)});
}

/// Access stores the view unless it is that of a continuous form.
DefaultView viewOf(const DesignObject& form) {
    const int view = form.number(kDefaultView, static_cast<int>(DefaultView::ContinuousForm));
    return view > static_cast<int>(DefaultView::SplitForm) ? DefaultView::SingleForm
                                                           : static_cast<DefaultView>(view);
}

std::string captionOf(const DesignObject& object) {
    for (const DesignObject& child : object.children) {
        if (child.kind == kLabel) return child.text(kCaption);
    }
    return {};
}

std::optional<int> decimalsOf(const DesignObject& object) {
    const int decimals = object.number(kDecimalPlaces, kMaxFormatDecimals + 1);
    return decimals < 0 || decimals > kMaxFormatDecimals ? std::nullopt : std::optional(decimals);
}

/// Returns a text without the marks of its accelerator.
std::string withoutAccelerator(const std::string& caption) {
    std::string text;
    for (std::size_t place = 0; place < caption.size(); ++place) {
        if (caption[place] == '&' && ++place == caption.size()) break;
        text += caption[place];
    }
    return text;
}

/// Returns the values of the buttons in an option group with the texts beside or on them.
ListSource optionsOf(const DesignObject& group) {
    constexpr std::array kButtons{kOptionButton, kCheckbox, kToggleButton};
    ListSource options{{}, 1, "0", ListSource::Kind::Values, 2};
    for (const DesignObject& button : group.children) {
        if (std::ranges::find(kButtons, button.kind) == kButtons.end()) continue;
        const std::string label = captionOf(button);
        const std::string text = withoutAccelerator(label.empty() ? button.text(kCaption) : label);
        const int value = button.number(kOptionValue, 0);
        if (!text.empty())
            options.rows += std::to_string(value) + ";\"" + replaceAll(text, "\"", "\"\"") + "\";";
    }
    return options;
}

class ControlCollector {
  public:
    explicit ControlCollector(StoredForm& form) : form_(form) {}

    void collect(const DesignObject& parent, FormSection section) {
        for (const DesignObject& child : parent.children)
            add(child, section);
    }

  private:
    /// The buttons of an option group have no values of their own.
    void add(const DesignObject& object, FormSection section) {
        const ControlType type = controlTypeOf(object.kind);
        const std::string name = object.text(kName);
        if (type != ControlType::Unknown && !name.empty()) {
            StoredControl control{type, name, captionOf(object), object.text(kControlSource), section};
            control.format = object.text(kFormat);
            control.formatDecimals = decimalsOf(object);
            if (type == ControlType::OptionGroup) control.list = optionsOf(object);
            if (type == ControlType::Combobox || type == ControlType::Listbox) control.list = listOf(object);
            if (type == ControlType::Subform) readSubform(object, control);
            form_.controls.push_back(std::move(control));
        }
        if (object.kind != kOptionGroup) collect(object, section);
    }

    static void readSubform(const DesignObject& object, StoredControl& control) {
        control.shownObject = object.textInSlot(kSourceObjectSlot);
        control.childFields = fieldsIn(object.text(kLinkChildFields));
        control.masterFields = fieldsIn(object.text(kLinkMasterFields));
    }

    StoredForm& form_;
};

}  // namespace

ListSource listOfType(const std::string& type, ListSource list) {
    const bool hasValues = type == kValueListType;
    if (!hasValues && !type.empty() && type != "Table/Query") return {};
    if (hasValues) list.kind = ListSource::Kind::Values;
    return list;
}

ControlType controlTypeOf(int kind) {
    constexpr std::array kTypes{
        std::pair(105, ControlType::OptionButton),  std::pair(106, ControlType::Checkbox),
        std::pair(107, ControlType::OptionGroup),   std::pair(108, ControlType::BoundObjectFrame),
        std::pair(109, ControlType::Textbox),       std::pair(110, ControlType::Listbox),
        std::pair(111, ControlType::Combobox),      std::pair(112, ControlType::Subform),
        std::pair(119, ControlType::CustomControl), std::pair(122, ControlType::ToggleButton),
        std::pair(123, ControlType::TabControl),    std::pair(126, ControlType::Attachment)};
    const auto* const found = std::ranges::find(kTypes, kind, [](const auto& type) { return type.first; });
    return found == kTypes.end() ? ControlType::Unknown : found->second;
}

StoredForm formOf(const std::string& name, const DesignObject& design) {
    StoredForm form{name, design.textInSlot(kRecordSourceSlot), {}, viewOf(design)};
    ControlCollector collector(form);
    bool hasDetail = false;
    for (const DesignObject& object : design.children) {
        const auto section = static_cast<std::size_t>(object.kind - kDetail);
        // Before the sections there are objects with the properties of new controls.
        if (object.kind < kDetail) continue;
        if (section >= kSections.size()) raiseDamaged();
        hasDetail = hasDetail || object.kind == kDetail;
        collector.collect(object, kSections.at(section));
    }
    if (!hasDetail) raiseDamaged();
    return form;
}

}  // namespace mergeloom::describe::access
