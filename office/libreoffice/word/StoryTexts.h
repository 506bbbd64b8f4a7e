#pragma once

#include "office/libreoffice/word/WriterModel.h"
#include "office/libreoffice/word/WriterStory.h"

#include <string>

/// The ways to the texts of stories beside the body. What they answer is none where Writer has no such text.
namespace mergeloom::libreoffice {

/// A header or footer, by the page style's name and its property.
TextSource pageText(const WriterModel& model, const std::string& page, const char* property);
/// A footnote by its number from 0.
TextSource footnoteText(const WriterModel& model, int number);
TextSource endnoteText(const WriterModel& model, int number);
/// The text in a frame or in a drawn shape, by its name.
TextSource boxText(const WriterModel& model, const std::string& name);

}  // namespace mergeloom::libreoffice
