#pragma once

#include "describe/PictureFolder.h"
#include "describe/RecordReader.h"
#include "describe/ValueFormat.h"
#include "describe/XmlStream.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mergeloom::describe {

/// Writes records of an object in the form that letters are filled from.
class RecordWriter {
  public:
    /// All but the object must outlive it. Without a folder pictures are left out.
    RecordWriter(XmlStream& xml, const ValueFormat& format, PictureFolder* pictures,
                 const ObjectDesign& object);

    /// Writes the current record of the reader and the records of its subforms.
    void write(RecordReader& reader);
    /// Passes on a sentence about each control that left out bytes which are no picture.
    void remarkBytes(const std::function<void(const std::string&)>& remark) const;

  private:
    /// The parts of a control's XML that are the same in each record.
    struct ControlMarkup {
        ControlType type = ControlType::Textbox;
        bool isLookedUp = false;
        Column lookedUp{};
        ValueList values{};
        Column column{};
        std::string start{};  ///< the start tag up to its attributes
        bool hasBytes = false;
    };

    void writeControl(ControlMarkup& control, const Value& value, const Value& shown);
    void writeValue(const std::string& element, std::string_view text);
    void writePicture(const ControlMarkup& control, const Value& value);

    XmlStream& xml_;
    const ValueFormat& format_;
    PictureFolder* pictures_;
    std::string objectName_;
    std::vector<ControlMarkup> controls_;
    std::vector<std::string> subformStarts_;
    std::vector<RecordWriter> subforms_;
    ValueText text_;
    ValueText shownText_;
};

}  // namespace mergeloom::describe
