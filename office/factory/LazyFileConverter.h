#pragma once

#include "base/FileStore.h"
#include "office/model/FileConverter.h"

#include <memory>
#include <string>

namespace mergeloom {

/// A converter that loads the module for LibreOffice only when it is first asked.
class LazyFileConverter final : public FileConverter {
  public:
    explicit LazyFileConverter(FileStore& files) : files_(files) {}

    std::string refusal(word::WdSaveFormat format) override { return refusalOf(format); }
    std::string refusal(excel::XlFileFormat format) override { return refusalOf(format); }
    void convert(const std::string& from, const std::string& to, word::WdSaveFormat format) override {
        converter().convert(from, to, format);
    }
    void convert(const std::string& from, const std::string& to, excel::XlFileFormat format) override {
        converter().convert(from, to, format);
    }

  private:
    template <typename Format>
    std::string refusalOf(Format format);
    FileConverter& converter();

    FileStore& files_;
    std::unique_ptr<FileConverter> converter_;
};

}  // namespace mergeloom
