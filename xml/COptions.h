#pragma once

#include "base/ErrorHandler.h"
#include "xml/XmlNode.h"

#include <string>

namespace mergeloom {

/// The folders that a structure document's options name.
class COptions {
  public:
    explicit COptions(ErrorHandler& errors) : errors_(errors) {}

    /// Reads the options below the document element. Raises kApplicationError when there are none; the
    /// folders then stay as they were.
    void init(XmlNode documentElement);

    /// The same for a document that may come without options: returns whether it has them.
    bool initIfThere(XmlNode documentElement);

    /// Empty when the options do not name it. Whether the folder exists is not looked at.
    [[nodiscard]] const std::string& DocumentsFolder() const { return documentsFolder_; }
    [[nodiscard]] const std::string& TemplatesFolder() const { return templatesFolder_; }

  private:
    ErrorHandler& errors_;
    std::string documentsFolder_;
    std::string templatesFolder_;
};

}  // namespace mergeloom
