#include "automation/ExcelObjects.h"
#include "automation/Members.h"
#include "office/model/excel/Shapes.h"
#include "office/model/excel/Worksheet.h"

#include <cmath>

namespace mergeloom::automation {

namespace {

/// The tolerance in points for positions that Excel has returned.
constexpr double kNearly = 0.01;

using SetPoints = void (excel::Picture::*)(Points);

/// The members of a shape. The place, size and name of pictures can be set.
class ShapeMembers {
  public:
    ShapeMembers(excel::ShapePtr shape, excel::PicturePtr picture)
        : shape_(std::move(shape)), picture_(std::move(picture)) {}

    [[nodiscard]] DispatchPtr object() const {
        const excel::ShapePtr shape = shape_;
        return makeObject({
            action("Delete", [shape] { shape->Delete(); }),
            length("Height", &excel::Shape::Height, &excel::Picture::SetHeight),
            length("Left", &excel::Shape::Left, &excel::Picture::SetLeft),
            option("LockAspectRatio", true),
            name(),
            option("Placement", 1),
            length("Top", &excel::Shape::Top, &excel::Picture::SetTop),
            property("TopLeftCell", [shape] { return excelRange(shape->TopLeftCell()); }),
            property("Type", [shape] { return static_cast<int>(shape->Type()); }),
            length("Width", &excel::Shape::Width, &excel::Picture::SetWidth),
        });
    }

  private:
    [[nodiscard]] Member length(std::string name, Points (excel::Shape::*get)(), SetPoints set) const {
        const auto read = [shape = shape_, get] { return (shape.get()->*get)().value; };
        if (!picture_) return property(std::move(name), read);
        return property(std::move(name), read, [picture = picture_, set](const Value& points) {
            (picture.get()->*set)({points.real()});
        });
    }
    [[nodiscard]] Member name() const {
        const auto read = [shape = shape_] { return shape->Name(); };
        if (!picture_) return property("Name", read);
        return property("Name", read,
                        [picture = picture_](const Value& text) { picture->SetName(text.text()); });
    }

    excel::ShapePtr shape_;
    excel::PicturePtr picture_;
};

/// The embedded office inserts a picture at the active cell in its natural size. Any other place is refused.
DispatchPtr addPicture(excel::Worksheet& sheet, const Given& given) {
    const excel::PicturePtr picture = sheet.Pictures()->Insert(given[0].text());
    const excel::ShapesPtr shapes = sheet.Shapes();
    const bool isThere = std::abs(picture->Left().value - given[3].real()) < kNearly &&
                         std::abs(picture->Top().value - given[4].real()) < kNearly && given[5].real() < 0 &&
                         given[6].real() < 0;
    if (!isThere) throw AutomationError(kApplicationDefined, "The double puts pictures at the active cell.");
    return ShapeMembers(shapes->Item(shapes->Count()), picture).object();
}

}  // namespace

DispatchPtr excelShapes(const excel::WorksheetPtr& sheet) {
    const excel::ShapesPtr shapes = sheet->Shapes();
    const auto item = [shapes](const Given& given) {
        return ShapeMembers(
                   given[0].isText() ? shapes->Item(given[0].text()) : shapes->Item(given[0].integer()),
                   nullptr)
            .object();
    };
    return makeObject({
        method("AddPicture", "Filename, LinkToFile, SaveWithDocument, Left, Top, Width, Height",
               [sheet](const Given& given) { return addPicture(*sheet, given); }),
        countOf(shapes),
        method("Item", "Index", item),
    });
}

}  // namespace mergeloom::automation
