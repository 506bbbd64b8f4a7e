#pragma once

#include "base/ErrorHandler.h"
#include "xml/XmlNode.h"

#include <string>

namespace mergeloom {

/// The folders that a structure document's options name.
class COptions {
  public:
    explicit COptions(ErrorHandler& errors) : errors_(errors) {}

    /// Reads the options below the document element. Raises kApplicationError when there are none, and then
    /// keeps the folders.
    void init(XmlNode documentElement);

    /// Reads the options of a document that may have none. Returns true when it has them.
    bool initIfThere(XmlNode documentElement);

    /// Returns the folder, empty when the options do not name it. It need not exist.
    [[nodiscard]] const std::string& DocumentsFolder() const { return documentsFolder_; }
    [[nodiscard]] const std::string& TemplatesFolder() const { return templatesFolder_; }

  private:
    ErrorHandler& errors_;
    std::string documentsFolder_;
    std::string templatesFolder_;
};

}  // namespace mergeloom
