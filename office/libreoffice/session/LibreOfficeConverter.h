#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/session/OfficeConnection.h"
#include "office/libreoffice/session/OfficePart.h"
#include "office/model/FileConverter.h"

#include <memory>

namespace mergeloom::libreoffice {

class LibreOfficeSession;

/// Conversions by an office that is started with the first of them, serves all of them and is started anew
/// when it has died.
class LibreOfficeConverter final : public FileConverter {
  public:
    /// The file store has to outlive it.
    explicit LibreOfficeConverter(FileStore& files, TimeBounds bounds = {});
    ~LibreOfficeConverter() override;

    bool canWrite(word::WdSaveFormat format) override;
    bool canWrite(excel::XlFileFormat format) override;
    void convert(const std::string& from, const std::string& to, word::WdSaveFormat format) override;
    void convert(const std::string& from, const std::string& to, excel::XlFileFormat format) override;

  private:
    template <typename Format>
    void convertAs(OfficePart part, const std::string& from, const std::string& to, Format format);
    LibreOfficeSession& session();

    FileStore& files_;
    TimeBounds bounds_;
    std::unique_ptr<LibreOfficeSession> session_;
};

}  // namespace mergeloom::libreoffice
