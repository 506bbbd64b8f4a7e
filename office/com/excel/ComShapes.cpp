#include "office/com/excel/ComShapes.h"

#include "base/AutomationError.h"
#include "office/com/automation/OfficeErrors.h"
#include "office/com/excel/ComCellRange.h"
#include "office/model/excel/Shapes.h"

#include <utility>

namespace mergeloom::com {

namespace {

/// Results with which Excel refuses a shape that is gone: an object is required, an argument is invalid.
constexpr ErrorNumber kObjectRequired = 424;
constexpr ErrorNumber kInvalidArgument = 0x80070057;

/// The size that makes Excel use that of the picture.
constexpr double kNaturalSize = -1;
/// XlPlacement: an object moves with its cells and keeps its size.
constexpr int kMove = 2;

/// Returns true for the errors with which Excel reports a missing object or item.
bool isMissing(const AutomationError& error) {
    return error.number() == kObjectRequired || error.number() == kInvalidArgument;
}

/// An object of the drawing layer, shared by shapes and pictures.
class ComDrawnObject {
  public:
    explicit ComDrawnObject(AutomationObject shape) : shape_(std::move(shape)) {}

    [[nodiscard]] Value get(const char* member) const {
        return asked([&] { return shape_.get(member); });
    }
    void put(const char* member, const Value& value) const {
        asked([&] {
            shape_.put(member, value);
            return Value();
        });
    }
    [[nodiscard]] Points points(const char* member) const { return {get(member).real()}; }
    [[nodiscard]] AutomationObject range(const char* member) const {
        return {shape_.session(), get(member).object(), "Range"};
    }
    void remove() const { static_cast<void>(get("Delete")); }

  private:
    template <typename Call>
    static Value asked(const Call& call) {
        try {
            return call();
        } catch (const AutomationError& error) {
            if (!isMissing(error)) throw;
            throw AutomationError(kObjectDeleted, "The object has been deleted.");
        }
    }

    AutomationObject shape_;
};

class ComShape final : public excel::Shape {
  public:
    ComShape(ComExcelModelPtr model, AutomationObject shape)
        : model_(std::move(model)), object_(std::move(shape)) {}

    std::string Name() override { return object_.get("Name").text(); }
    excel::MsoShapeType Type() override { return excel::MsoShapeType{object_.get("Type").integer()}; }
    excel::RangePtr TopLeftCell() override { return rangeOf(model_, object_.range("TopLeftCell")); }
    Points Left() override { return object_.points("Left"); }
    Points Top() override { return object_.points("Top"); }
    Points Width() override { return object_.points("Width"); }
    Points Height() override { return object_.points("Height"); }
    void Delete() override { object_.remove(); }

  private:
    ComExcelModelPtr model_;
    ComDrawnObject object_;
};

class ComShapes final : public excel::Shapes {
  public:
    ComShapes(ComExcelModelPtr model, AutomationObject shapes)
        : model_(std::move(model)), shapes_(std::move(shapes)) {}

    int Count() override { return shapes_.get("Count").integer(); }
    excel::ShapePtr Item(int number) override { return item(static_cast<int>(indexOf(number)) + 1); }
    excel::ShapePtr Item(const std::string& name) override { return item(name); }

  private:
    excel::ShapePtr item(const Value& index) {
        try {
            return std::make_shared<ComShape>(model_, shapes_.object("Shape", "Item", {index}));
        } catch (const AutomationError& error) {
            if (!isMissing(error)) throw;
            throw AutomationError(kApplicationDefined, "There is no object " + shownValue(index) + ".");
        }
    }

    ComExcelModelPtr model_;
    AutomationObject shapes_;
};

class ComPicture final : public excel::Picture {
  public:
    explicit ComPicture(AutomationObject shape) : object_(std::move(shape)) {}

    std::string Name() override { return object_.get("Name").text(); }
    void SetName(const std::string& name) override { object_.put("Name", name); }
    Points Left() override { return object_.points("Left"); }
    void SetLeft(Points left) override { object_.put("Left", left.value); }
    Points Top() override { return object_.points("Top"); }
    void SetTop(Points top) override { object_.put("Top", top.value); }
    Points Width() override { return object_.points("Width"); }
    void SetWidth(Points width) override { object_.put("Width", width.value); }
    Points Height() override { return object_.points("Height"); }
    void SetHeight(Points height) override { object_.put("Height", height.value); }

  private:
    ComDrawnObject object_;
};

/// Excel's own Pictures.Insert would only link the file.
class ComPictures final : public excel::Pictures {
  public:
    ComPictures(ComExcelModelPtr model, AutomationObject sheet)
        : model_(std::move(model)), sheet_(std::move(sheet)) {}

    excel::PicturePtr Insert(const std::string& fileName) override {
        const AutomationObject cell = model_->application().object("Range", "ActiveCell");
        const AutomationObject shape = added(fileName, cell);
        shape.put("LockAspectRatio", false);
        shape.put("Placement", kMove);
        return std::make_shared<ComPicture>(shape);
    }

  private:
    AutomationObject added(const std::string& fileName, const AutomationObject& cell) {
        std::optional<AutomationObject> shape;
        const auto add = [&] {
            shape = sheet_.object("Shapes", "Shapes")
                        .callForObject("Shape", "AddPicture",
                                       {{"Filename", fileName},
                                        {"LinkToFile", false},
                                        {"SaveWithDocument", true},
                                        {"Left", cell.get("Left")},
                                        {"Top", cell.get("Top")},
                                        {"Width", kNaturalSize},
                                        {"Height", kNaturalSize}});
        };
        try {
            add();
        } catch (const AutomationError& error) {
            // Excel has one number for a file that is no picture and for a sheet that accepts none.
            if (error.number() == kApplicationDefined && sheet_.get("ProtectDrawingObjects").truth()) throw;
            readingFile(*sheet_.session(), fileName, [&] { throw error; });
        }
        return *shape;
    }

    ComExcelModelPtr model_;
    AutomationObject sheet_;
};

}  // namespace

excel::ShapesPtr makeShapes(const ComExcelModelPtr& model, const AutomationObject& sheet) {
    return std::make_shared<ComShapes>(model, sheet.object("Shapes", "Shapes"));
}

excel::PicturesPtr makePictures(const ComExcelModelPtr& model, const AutomationObject& sheet) {
    return std::make_shared<ComPictures>(model, sheet);
}

}  // namespace mergeloom::com
