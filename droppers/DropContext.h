#pragma once

#include "base/ErrorHandler.h"
#include "base/Messages.h"
#include "base/Progress.h"
#include "base/Text.h"
#include "droppers/FurtherPlaceNames.h"
#include "droppers/modWordNormalizeName.h"
#include "xml/XmlNode.h"

#include <functional>
#include <memory>
#include <source_location>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace mergeloom {

/// The names under which a procedure's errors are reported.
struct Procedure {
    const char* module;
    const char* name;
};

/// Shows the messages of one drop and reports its errors. It remembers an error or the user's cancellation,
/// since the drop is then undone.
class DropReports : public ErrorHandler {
  public:
    DropReports(ErrorHandler& errors, Messages& messages) : errors_(errors), messages_(messages) {}

    /// Passes the error on to the program's error handler.
    void report(const ErrorReport& report) override;

    /// Informs the user why something is not dropped. A refusal is no error: nothing was changed. Returns
    /// false, so that the procedure that refuses can return it.
    bool refuse(const std::string& text, MessageIcon icon = MessageIcon::Exclamation);
    /// Informs the user of what was done differently than expected.
    void tell(const std::string& text);
    /// Asks a yes-or-no question. Returns true for yes.
    bool ask(const std::string& question);
    /// Announces the next step. Returns false when the user cancels.
    bool confirm(const std::string& announcement);
    /// Ends the drop as an error does, because the user cancelled it.
    void cancel() { failed_ = true; }

    /// Runs a procedure's body under its trap and returns the body's result. An error is passed to the error
    /// handler with the comment, a function that returns the text at that time, and the result is false.
    template <typename Body, typename Comment = decltype(&noComment)>
    bool trap(const Procedure& procedure, const Body& body, const Comment& comment = noComment,
              const std::source_location& place = std::source_location::current()) {
        bool result = false;
        mergeloom::trap(
            *this, procedure.module, procedure.name, [&] { result = body(); }, comment, place);
        return result;
    }

    /// Returns true when a procedure raised an error or the user cancelled. A drop of several places stops
    /// then.
    [[nodiscard]] bool failed() const { return failed_; }

    /// Returns true when the user knows why something was not dropped: a refusal, an error or a cancellation.
    [[nodiscard]] bool hasTold() const { return hasTold_ || failed_; }

  private:
    ErrorHandler& errors_;
    Messages& messages_;
    bool failed_ = false;
    bool hasTold_ = false;
};

/// The names that one drop has given so far, regardless of letter case.
class DroppedNames {
  public:
    void add(std::string_view name) { added_.append(name).push_back(kEnd); }
    [[nodiscard]] bool contains(std::string_view name) const {
        for (const std::string_view added : split(added_, kEnd))
            if (!added.empty()) folded_.insert(foldCase(added));
        added_.clear();
        return folded_.contains(foldCase(name));
    }

  private:
    static constexpr char kEnd = '\0';

    // Names are folded by contains, which only drops with tables call.
    mutable std::string added_;  // the names that are not folded yet, each followed by kEnd
    mutable std::unordered_set<std::string> folded_;
};

/// Tree keys of chosen fields, in the requested order.
using FieldKeys = std::vector<std::string>;

/// The layout that vDocumentType requests for a table, query or form.
enum class DocumentType { ByView = 0, Table = 1, LabelDocument = 2, Form = 3 };

/// Returns the full path of the picture that a control's Image attribute names, or an empty text when there
/// is no such file.
using PictureFinder = std::function<std::string(const std::string& image)>;

/// The settings that all droppers of one drop share.
struct DropSettings {
    bool showDialog = false;
    DocumentType documentType = DocumentType::ByView;
    const FieldKeys* fields = nullptr;  ///< null for every field
};

class FieldDialog;
class FormerPlaces;

/// The settings, services and results that all droppers of one drop share.
struct DropContext {
    DropReports& reports;
    const XmlNodeCollection& xmlNodes;
    const PictureFinder& findPicture;
    Progress& progress;
    DropSettings settings;
    FieldDialog* fieldDialog = nullptr;          ///< null when there is no user to choose
    NameRule normalizeName = WordNormalizeName;  ///< of the kind of document
    DroppedNames places{};                       ///< the places that this drop made
    DroppedNames tables{};  ///< the tables that this drop made, which are no earlier tables to replace
    std::shared_ptr<FormerPlaces> formerPlaces{};  ///< of a workbook; null until the drop makes a place
    /// The reason why nothing of an object was dropped, unless the user was informed of it.
    std::string nothingDropped{};
};

}  // namespace mergeloom
