#pragma once

#include "office/libreoffice/readback/StoredContent.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/libreoffice/word/MarkTable.h"
#include "office/libreoffice/word/WriterModel.h"
#include "office/libreoffice/word/WriterStory.h"

#include <deque>
#include <map>
#include <string>

namespace mergeloom::libreoffice {

/// Finds out what a document of Writer's holds: its stories with their tables, bookmarks and objects.
class ContentReader {
  public:
    /// Stories that are known already keep their places in the list.
    ContentReader(LibreOfficeSession& session, const WriterModel& model, std::deque<WriterStory>& stories,
                  MarkTable& marks)
        : session_(session), model_(model), stories_(stories), marks_(marks) {}

    void read();
    /// The same for a document of one empty paragraph, without asking.
    void readEmpty();

  private:
    [[nodiscard]] TextSource bodyText() const;
    WriterStory& storyOf(const std::string& name, const TextSource& source);
    void readStory(const std::string& name, const TextSource& source, const pugi::xml_node& root);
    void readWithin(const pugi::xml_node& element);
    void readPages(const pugi::xml_node& styles);
    void readNote(const pugi::xml_node& note);
    void readBox(const std::string& drawing, const pugi::xml_node& root);

    LibreOfficeSession& session_;
    const WriterModel& model_;
    std::deque<WriterStory>& stories_;
    MarkTable& marks_;
    std::map<std::string, int> counts_;  ///< of the stories of each kind
};

}  // namespace mergeloom::libreoffice
