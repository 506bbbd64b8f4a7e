#include "app/CAutoMapping.h"
#include "app/ListFormatting.h"
#include "app/MergeloomErrorCodes.h"
#include "app/TemplateNames.h"
#include "app/mCommandLine.h"
#include "base/ConsoleOutput.h"
#include "base/ErrorHandler.h"
#include "base/Messages.h"
#include "base/Paths.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

/// The templates of all objects.
namespace mergeloom {

namespace {

/// Shows messages about one of many objects: each begins with the object's title.
class ObjectMessages final : public Messages {
  public:
    ObjectMessages(Messages& messages, std::string title) : messages_(messages), title_(std::move(title)) {}

    MessageAnswer show(const Message& message) override {
        Message titled = message;
        titled.text.insert(0, title_ + ": ");
        return messages_.show(titled);
    }

  private:
    Messages& messages_;
    std::string title_;
};

/// Reports errors at one of many objects: each has the object's title in its comment.
class ObjectErrors final : public ErrorHandler {
  public:
    ObjectErrors(ErrorHandler& errors, std::string title) : errors_(errors), title_(std::move(title)) {}

    void report(const ErrorReport& report) override {
        ErrorReport titled = report;
        titled.comment.insert(0, report.comment.empty() ? title_ : title_ + ": ");
        errors_.report(titled);
    }

  private:
    ErrorHandler& errors_;
    std::string title_;
};

std::string countText(std::size_t made, std::size_t total) {
    return std::to_string(made) + " of " + std::to_string(total) + " templates were made";
}

}  // namespace

bool CAutoMapping::ExecuteAll(const std::function<bool()>& isStopped) {
    return trapped([&] { return mapAll(isStopped); });
}

bool CAutoMapping::mapAll(const std::function<bool()>& isStopped) {
    checkFolder();
    const std::unique_ptr<MappingTarget> office = makeOffice();
    MappingSource source(arguments_.xmlFile, errors_, messages_);
    const std::vector<DatabaseObject> objects = objectsOf(source);
    if (objects.empty()) RaiseMappingError(kXmlFileIncorrect);
    readFolders(source.document());
    const std::vector<Task> tasks = tasksOf(objects, *office);
    checkArguments(*office, tasks.front().target);
    refuseExisting(tasks);
    return makeTemplates(*office, source, tasks, isStopped);
}

void CAutoMapping::checkFolder() const {
    if (!GetCommandLineArgument(kTemplateSwitch).empty()) {
        throw MappingRefusal(
            "The switch -template has no meaning behind '--all': each template is called "
            "after its object. '--format' chooses their extension.");
    }
    if (folderExists(options_.folder)) return;
    throw MappingRefusal("There is no folder '" + options_.folder + "' for the templates.");
}

std::vector<CAutoMapping::Task> CAutoMapping::tasksOf(const std::vector<DatabaseObject>& objects,
                                                      const MappingTarget& office) const {
    TemplateNames names(options_.format.empty() ? office.templateExtension() : options_.format);
    std::vector<Task> tasks;
    for (const DatabaseObject& object : objects) {
        const std::string name = object.name().empty() ? object.kind() : object.name();
        tasks.push_back({object, joinPath(templatesFolder_, names.nameFor(name))});
    }
    return tasks;
}

void CAutoMapping::refuseExisting(const std::vector<Task>& tasks) {
    std::vector<std::string> existing;
    for (const Task& task : tasks) {
        if (fileExists(task.target) || folderExists(task.target))
            existing.push_back("'" + fileNameOnly(task.target) + "'");
    }
    if (existing.empty()) return;
    throw MappingRefusal("No template was made: the folder '" + parentFolder(tasks.front().target) +
                         "' has files of their names already: " + joinedNames(existing) + ".");
}

void CAutoMapping::reportChangedNames(const std::vector<Task>& tasks) {
    for (const Task& task : tasks) {
        const std::string name = fileNameOnly(task.target);
        const bool isItsOwn = name == task.object.name() + "." + extension(name);
        if (isItsOwn) continue;
        showMessage("The template of " + task.object.title() + " is called '" + name +
                    "', since its own name is taken or cannot be that of a file.");
    }
}

bool CAutoMapping::makeTemplates(MappingTarget& office, const MappingSource& source,
                                 const std::vector<Task>& tasks, const std::function<bool()>& isStopped) {
    reportChangedNames(tasks);
    std::size_t made = 0;
    std::string refused;
    for (std::size_t index = 0; index < tasks.size(); ++index) {
        const Task& task = tasks[index];
        progress_.advance(static_cast<std::int64_t>(index), std::ssize(tasks));
        try {
            if (isStopped()) throw MappingRefusal("It was stopped.");
            if (makeTemplate(office, source, task)) {
                ++made;
            } else {
                refused += (refused.empty() ? "" : ", ") + task.object.title();
            }
        } catch (const std::exception&) {
            showMessage(countText(made, tasks.size()) + "; the mapping ended at " + task.object.title() +
                        ":");
            throw;
        }
    }
    if (!refused.empty()) showMessage(countText(made, tasks.size()) + ". Refused: " + refused + ".");
    return refused.empty();
}

bool CAutoMapping::makeTemplate(MappingTarget& office, const MappingSource& source, const Task& task) {
    ObjectErrors errors{errors_, task.object.title()};
    ObjectMessages messages{messages_, task.object.title()};
    NoProgress progress;
    try {
        if (mapObject(office, source, *task.object.node, {errors, messages, progress})) {
            save(office, task.target);
            office.closeDocument();
            return true;
        }
    } catch (const AutomationError& error) {
        // Another object may have the fields that this one lacks.
        if (error.number() != kFieldListIncorrect) throw;
        messages.show({error.description(), MessageIcon::Exclamation, MessageButtons::Ok});
        return false;
    }
    office.closeDocument();
    return false;
}

}  // namespace mergeloom
