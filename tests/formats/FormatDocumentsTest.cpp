#include "formats/Families.h"
#include "office/formats/mFileExtensions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// Compares the texts about formats outside of the code with the table of formats.
namespace mergeloom {
namespace {

using testing::HasSubstr;

std::string contentOf(const std::string& path) {
    std::ifstream file(std::string(MERGELOOM_SAMPLES) + "/../" + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Returns the extensions of the formats for which the predicate holds, in the table's order, each once.
template <typename Predicate>
std::vector<std::string> extensions(DocumentFamily family, const Predicate& isWanted) {
    std::vector<std::string> found;
    const auto add = [&](const std::string& extension) {
        if (!extension.empty() && std::ranges::find(found, extension) == found.end())
            found.push_back(extension);
    };
    for (const FileFormat& format : fileFormats(family)) {
        if (!isWanted(format)) continue;
        add(std::string(format.extension));
        add(secondExtension(format.extension));
    }
    return found;
}

std::string joined(const std::vector<std::string>& words, const std::string& separator) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : separator) + word;
    return text;
}

bool isOpened(DocumentFamily family, const FileFormat& format) {
    return findFormatToOpen(family, format.extension) != nullptr;
}

bool isSaved(DocumentFamily family, const FileFormat& format) {
    return std::ranges::any_of(fileFormats(family), [&](const FileFormat& other) {
        return other.extension == format.extension && (other.engine || other.saving);
    });
}

std::string rowOfReadme(DocumentFamily family, const std::string& title) {
    const auto isOwn = [](const FileFormat& format) { return format.engine.has_value(); };
    const auto isForeign = [&](const FileFormat& format) {
        return !format.engine && isOpened(family, format) && isSaved(family, format);
    };
    const auto isWrittenOnly = [&](const FileFormat& format) {
        return !isOpened(family, format) && isSaved(family, format);
    };
    const auto isOpenedOnly = [&](const FileFormat& format) {
        return isOpened(family, format) && !isSaved(family, format);
    };
    return "| " + title + " | " + joined(extensions(family, isOwn), ", ") + " | " +
           joined(extensions(family, isForeign), ", ") + " | " +
           joined(extensions(family, isWrittenOnly), ", ") + " | " +
           joined(extensions(family, isOpenedOnly), ", ") + " |\n";
}

TEST(FormatDocuments, ReadmeListsTheTable) {
    const std::string readme = contentOf("README.md");
    EXPECT_THAT(readme, HasSubstr(rowOfReadme(kWord, "Word")));
    EXPECT_THAT(readme, HasSubstr(rowOfReadme(kExcel, "Excel (`-excel`)")));
}

TEST(FormatDocuments, CompletionKnowsEveryFileThatCanBeOpenedOrSaved) {
    const std::string completion = contentOf("data/mergeloom.bash");
    for (const auto& [family, variable] : {std::pair{kWord, "documents"}, std::pair{kExcel, "workbooks"}}) {
        // Most files called xml are structure documents.
        const auto isUsed = [&](const FileFormat& format) {
            return format.extension != "xml" && (isOpened(family, format) || isSaved(family, format));
        };
        EXPECT_THAT(completion, HasSubstr("local " + std::string(variable) + "='" +
                                          joined(extensions(family, isUsed), "|") + "'\n"));
    }
}

}  // namespace
}  // namespace mergeloom
