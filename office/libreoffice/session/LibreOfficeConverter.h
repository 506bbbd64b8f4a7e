#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/libreoffice/session/OfficeConnection.h"
#include "office/model/DocumentHost.h"
#include "office/model/FileConverter.h"

#include <functional>
#include <memory>
#include <string>

namespace mergeloom::libreoffice {

class LibreOfficeSession;

/// Returns a running office, a new one or one that others work with.
using SessionSource = std::function<std::shared_ptr<LibreOfficeSession>()>;

/// Checks the file that was written of a document for a path, and raises the error that keeps the former
/// file.
template <typename Format>
using WrittenCheck = std::function<void(LibreOfficeSession& session, const DocumentReference& document,
                                        const std::string& path, Format format, const std::string& bytes)>;
struct WrittenChecks {
    WrittenCheck<word::WdSaveFormat> word;
    WrittenCheck<excel::XlFileFormat> excel;
};

/// Converts files by an office that is started with the first of them, serves all of them and is started anew
/// when it has died.
class LibreOfficeConverter final : public FileConverter {
  public:
    LibreOfficeConverter(SessionSource source, WrittenChecks checks);
    /// Uses an office of its own, without checks. The file store has to outlive it.
    explicit LibreOfficeConverter(FileStore& files, TimeBounds bounds = {});
    ~LibreOfficeConverter() override;

    std::string refusal(word::WdSaveFormat format) override;
    std::string refusal(excel::XlFileFormat format) override;
    void convert(const std::string& from, const std::string& to, word::WdSaveFormat format) override;
    void convert(const std::string& from, const std::string& to, excel::XlFileFormat format) override;

  private:
    template <typename Format>
    void convertAs(DocumentKind kind, const std::string& from, const std::string& to, Format format,
                   const WrittenCheck<Format>& check);
    LibreOfficeSession& session();

    SessionSource source_;
    WrittenChecks checks_;
    std::shared_ptr<LibreOfficeSession> session_;
};

}  // namespace mergeloom::libreoffice
