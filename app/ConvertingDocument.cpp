#include "app/ConvertingDocument.h"

#include "app/ConvertingWord.h"

namespace mergeloom {

word::ApplicationPtr ConvertingDocument::Application() {
    return office_.lock();
}

word::WindowPtr ConvertingDocument::ActiveWindow() {
    return file_.document().ActiveWindow();
}

word::BookmarksPtr ConvertingDocument::Bookmarks() {
    return file_.document().Bookmarks();
}

word::FieldsPtr ConvertingDocument::Fields() {
    return file_.document().Fields();
}

word::MailMergePtr ConvertingDocument::MailMerge() {
    return file_.document().MailMerge();
}

word::TablesPtr ConvertingDocument::Tables() {
    return file_.document().Tables();
}

void ConvertingDocument::Close(word::WdSaveOptions saveChanges) {
    if (saveChanges == word::WdSaveOptions::wdSaveChanges && !Saved()) Save();
    file_.document().Close(word::WdSaveOptions::wdDoNotSaveChanges);
    if (const auto office = office_.lock()) office->remove(*this);
}

}  // namespace mergeloom
