#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/libreoffice/session/OfficeConnection.h"
#include "office/model/DocumentHost.h"
#include "office/model/FileConverter.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

class LibreOfficeSession;

/// Returns a running office, a new or a shared one.
using SessionSource = std::function<std::shared_ptr<LibreOfficeSession>()>;

/// Checks the bytes that were written of a document for a path. Raises an error to keep the former file.
using WrittenCheck =
    std::function<void(LibreOfficeSession& session, const DocumentReference& document,
                       const std::string& path, SaveFormat format, const std::string& bytes)>;

/// Converts files with an office that is started for the first file, used for all files and restarted after
/// it died.
class LibreOfficeConverter final : public FileConverter {
  public:
    LibreOfficeConverter(SessionSource source, WrittenCheck check);
    /// Uses an office of its own, without a check. The file store must outlive it.
    explicit LibreOfficeConverter(FileStore& files, TimeBounds bounds = {});
    ~LibreOfficeConverter() override;

    std::string refusal(word::WdSaveFormat format) override;
    std::string refusal(excel::XlFileFormat format) override;
    void convert(const std::string& from, const std::string& to, word::WdSaveFormat format) override;
    void convert(const std::string& from, const std::string& to, excel::XlFileFormat format) override;
    bool convertRecords(const std::string& from, const std::vector<std::string>& to,
                        word::WdSaveFormat format, const std::function<void()>& written) override;

  private:
    void convertAs(const std::string& from, const std::string& to, SaveFormat format);
    LibreOfficeSession& session();

    SessionSource source_;
    WrittenCheck check_;
    std::shared_ptr<LibreOfficeSession> session_;
};

}  // namespace mergeloom::libreoffice
