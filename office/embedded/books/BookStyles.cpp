#include "office/embedded/books/BookStyles.h"

#include "office/embedded/sheet/TreeEdit.h"

#include <string_view>
#include <vector>

namespace mergeloom::embedded {

namespace {

// Built-in formats (ECMA-376 Part 1, 18.8.30).
constexpr int kText = 49;
constexpr int kDate = 14;
constexpr int kDateAndTime = 22;
constexpr int kFirstOwnFormat = 164;

std::string codeOf(pugi::xml_node styles, int number) {
    for (const pugi::xml_node format : childrenNamed(childNamed(styles, "numFmts"), "numFmt")) {
        if (format.attribute("numFmtId").as_int() == number) return format.attribute("formatCode").value();
    }
    return {};
}

}  // namespace

BookStyles::BookStyles(std::unique_ptr<opc::XmlPart> part) : part_(std::move(part)) {
    if (part_) formats_ = childNamed(part_->root(), "cellXfs");
}

pugi::xml_node BookStyles::format(int style) const {
    if (!formats_ || style < 0) return {};
    const std::vector<pugi::xml_node> all = childrenNamed(formats_, "xf");
    return static_cast<std::size_t>(style) < all.size() ? all[static_cast<std::size_t>(style)]
                                                        : pugi::xml_node();
}

NumberFormat BookStyles::numberFormatOf(int style) const {
    const int number = format(style).attribute("numFmtId").as_int();
    if (number == 0) return NumberFormat::General;
    if (number == kText) return NumberFormat::Text;
    if (number < kFirstOwnFormat) return NumberFormat::Other;
    const std::string code = codeOf(part_->root(), number);
    if (code == "@") return NumberFormat::Text;
    return code == "General" ? NumberFormat::General : NumberFormat::Other;
}

void BookStyles::addDates(int style) {
    const bool isKnown = dates_.contains({style, CellValue::Kind::Date});
    if (isKnown || !format(style) || numberFormatOf(style) != NumberFormat::General) return;
    dates_[{style, CellValue::Kind::Date}] = add(style, kDate);
    dates_[{style, CellValue::Kind::DateAndTime}] = add(style, kDateAndTime);
    xml_ = part_->toXml();
}

int BookStyles::add(int style, int numberFormat) {
    const int index = static_cast<int>(childrenNamed(formats_, "xf").size());
    pugi::xml_node added = formats_.append_copy(format(style));
    for (const char* name : {"numFmtId", "applyNumberFormat"}) {
        if (!added.attribute(name)) added.append_attribute(name);
    }
    added.attribute("numFmtId").set_value(numberFormat);
    added.attribute("applyNumberFormat").set_value("1");
    formats_.attribute("count").set_value(index + 1);
    return index;
}

int BookStyles::styleOf(int style, CellValue::Kind kind) const {
    const auto found = dates_.find({style, kind});
    return found == dates_.end() ? style : found->second;
}

}  // namespace mergeloom::embedded
