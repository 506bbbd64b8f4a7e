#pragma once

#include "app/FileFormats.h"
#include "base/AutomationError.h"
#include "base/FileStore.h"
#include "office/factory/OfficeFactory.h"
#include "office/model/DocumentHost.h"
#include "office/model/PasswordRequired.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"
#include "office/model/word/Selection.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace mergeloom {

/// A host without a window. Its documents are those of the embedded office, and it records all other calls in
/// a list.
class FakeDocumentHost final : public DocumentHost {
  public:
    explicit FakeDocumentHost(FileStore& files)
        : word_(makeWordApplication(OfficeKind::Embedded, files)),
          excel_(makeExcelApplication(OfficeKind::Embedded, files)) {}

    void CreateNew(const std::string& programIdentifier) override {
        call("CreateNew " + programIdentifier);
        isOpenReadOnly = false;
        if (unknownPrograms.count(programIdentifier) > 0)
            throw AutomationError(kCommandFailed, "The office does not know it.");
        if (programIdentifier.starts_with("Excel")) {
            document_ = excel_->Workbooks()->Add("");
        } else {
            document_ = word_->Documents()->Add("");
        }
    }
    void Open(const std::string& path, FileAccess access, const std::string& password) override {
        call("Open");
        const auto needed = passwords.find(path);
        if (needed != passwords.end() && needed->second != password) throw model::PasswordRequired(path);
        hasPassword = !password.empty();
        isOpenReadOnly = access == FileAccess::ReadOnly || protectedFiles.contains(path);
        if (hasExcelExtension(path)) {
            document_ = excel_->Workbooks()->Open(path);
        } else {
            document_ = word_->Documents()->Open(path);
        }
    }
    HostedDocument ActiveDocument() override {
        failWhenEnded();
        return document_;
    }

    bool hasOpenDialog() override { return isDialogOpen; }
    bool isReadOnly() override { return isOpenReadOnly; }
    bool losesPassword(int format) override { return hasPassword && unprotectedFormats.contains(format); }
    void ExportCopy(const std::string& path, int format) override {
        call("export " + path + " " + std::to_string(format));
    }

    std::string exportedPackage() override {
        call("exportedPackage");
        return package;
    }
    void showPreview(DocumentKind, const std::string& bytes) override {
        call("showPreview");
        if (!previewRefusal.empty()) throw AutomationError(kFileCouldNotBeRead, previewRefusal);
        preview = bytes;
    }
    void endPreview() override {
        call("endPreview");
        preview.clear();
    }

    bool hasChangesToKeep() override { return hosted() != nullptr && !hosted()->Saved(); }
    /// Writes a document as the embedded office makes it, whatever the extension.
    void keepCopy(const std::string& path) override {
        call("keepCopy");
        const word::DocumentPtr copy = word_->Documents()->Add("");
        copy->ActiveWindow()->Selection()->TypeText("kept");
        copy->SaveAs(path, word::WdSaveFormat::wdFormatXMLDocument);
        copy->Close(word::WdSaveOptions::wdDoNotSaveChanges);
    }

    std::vector<std::string> placeNames() override {
        failWhenEnded();
        return places;
    }
    std::vector<std::string> placesAt(HostPoint /*point*/) override { return placeNames(); }
    void showPlace(const std::string& name) override { call("showPlace " + name); }
    void renamePlace(const std::string& name, const std::string& newName) override {
        call("renamePlace " + name + " " + newName);
        if (!placeRefusal.empty()) throw AutomationError(kCommandFailed, placeRefusal);
        std::replace(places.begin(), places.end(), name, newName);
    }
    void removePlace(const std::string& name) override {
        call("removePlace " + name);
        std::erase(places, name);
    }

    void endInput() override { call("endInput"); }
    void beginEditing() override { call("beginEditing"); }
    void endEditing() override { call("endEditing"); }
    void showDropPlace(HostPoint) override { call("showDropPlace"); }
    void hideDropPlace() override { call("hideDropPlace"); }
    bool placeCaret(HostPoint point) override {
        call("placeCaret " + std::to_string(point.x) + "," + std::to_string(point.y));
        return hasTextAtPoint;
    }
    void resize(int width, int height) override {
        call("resize " + std::to_string(width) + "x" + std::to_string(height));
    }
    void focus(const std::function<bool()>& isWanted) override {
        if (isWanted()) call("focus");
    }
    void focusAgain(const std::function<bool()>& isWanted) override {
        if (isWanted()) call("focusAgain");
    }
    void beginOpening() override { call("beginOpening"); }
    void focusOpened() override { call("focusOpened"); }
    bool showsBookmarks() override { return bookmarksShown; }
    void setShowsBookmarks(bool shown) override {
        failWhenEnded();
        bookmarksShown = shown;
    }
    bool setLook(const HostLook&) override {
        call("setLook");
        return !isDialogOpen;
    }
    void updateMarks() override { call("updateMarks"); }
    void setZoom(int percent) override { call("zoom " + std::to_string(percent)); }
    void setCommandBarVisible(const std::string& name, bool visible) override {
        call((visible ? "show " : "hide ") + name);
    }
    bool allowsDragAndDrop() override { return dragAllowed; }
    std::string build() override { return "4711"; }

    /// Returns the hosted document of either office; none if there is none.
    [[nodiscard]] model::OfficeDocument* hosted() const {
        if (const auto* const document = std::get_if<word::DocumentPtr>(&document_)) return document->get();
        if (const auto* const workbook = std::get_if<excel::WorkbookPtr>(&document_)) return workbook->get();
        return nullptr;
    }
    [[nodiscard]] std::string hostedName() const { return hosted() == nullptr ? "" : hosted()->FullName(); }

    std::vector<std::string> calls;
    std::vector<std::string> places;
    std::string placeRefusal;
    std::string package;         ///< what exportedPackage returns
    std::string preview;         ///< the bytes that are shown; empty without a preview
    std::string previewRefusal;  ///< the error of showPreview
    std::set<std::string> unknownPrograms;
    std::map<std::string, std::string> passwords;  ///< the passwords of files, by their paths
    std::set<std::string> protectedFiles;          ///< the files that are opened for reading only
    std::set<int> unprotectedFormats;
    bool hasPassword = false;  ///< true if the document has a password
    bool hasTextAtPoint = true;
    bool bookmarksShown = false;
    bool dragAllowed = true;
    bool isOpenReadOnly = false;
    bool isDialogOpen = false;
    bool ended = false;  ///< every call fails from here on

  private:
    void failWhenEnded() const {
        if (ended) throw AutomationError(kNotAvailable, "The office has ended.");
    }
    void call(std::string name) {
        failWhenEnded();
        calls.push_back(std::move(name));
    }

    word::ApplicationPtr word_;
    excel::ApplicationPtr excel_;
    HostedDocument document_;
};

}  // namespace mergeloom
