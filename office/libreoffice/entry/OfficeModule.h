#pragma once

#include "base/FileStore.h"
#include "office/model/DocumentHost.h"
#include "office/model/FileConverter.h"
#include "office/model/PackageGraft.h"
#include "office/model/excel/Forward.h"
#include "office/model/word/Forward.h"

#include <memory>

/// What the program and the module that talks to LibreOffice know of each other. The module is loaded when it
/// is first asked for and never unloaded. Both are built from the same sources with the same compiler, so
/// objects and AutomationErrors pass between them as within a program; each has its own copy of base.
namespace mergeloom {

/// The offices that the module makes. The file store has to outlive what it was given to.
class OfficeModule {
  public:
    OfficeModule() = default;
    OfficeModule(const OfficeModule&) = delete;
    OfficeModule& operator=(const OfficeModule&) = delete;
    virtual ~OfficeModule() = default;

    /// Raises kNotAvailable, with a sentence that says what to do, when LibreOffice cannot be started.
    virtual word::ApplicationPtr makeWordApplication(FileStore& files) = 0;
    virtual excel::ApplicationPtr makeExcelApplication(FileStore& files) = 0;
    /// An office is started with the first conversion only, and again after it died in one.
    virtual std::unique_ptr<FileConverter> makeFileConverter(FileStore& files) = 0;
    /// An office of its own; the listener and the graft have to outlive it, too.
    virtual std::unique_ptr<DocumentHost> makeDocumentHost(FileStore& files, const HostWindow& window,
                                                           DocumentKind kind, HostListener& listener,
                                                           const model::PackageGraft& graft) = 0;
};

/// The module's file and the one function that it exports.
inline constexpr const char* kOfficeModuleFile = "mergeloom_libreoffice.so";
inline constexpr const char* kOfficeModuleFunction = "mergeloom_office_module";
/// To be raised with every change of an interface that both sides see.
inline constexpr int kOfficeModuleEdition = 4;

/// The module, for the program's whole life; none when it was built for another edition.
using OfficeModuleFunction = OfficeModule* (*)(int edition);

}  // namespace mergeloom
