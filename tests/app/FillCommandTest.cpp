#include "LabellingConverter.h"
#include "app/FillCommand.h"
#include "doubles/FaultyFileStore.h"
#include "doubles/TemporaryFolder.h"
#include "doubles/WordFiles.h"

#include <gmock/gmock.h>

#include <mutex>
#include <sstream>
#include <utility>

namespace mergeloom {
namespace {

using testing::HasSubstr;

/// Fills a template in memory with records of a file.
class FillTest : public testing::Test {
  protected:
    FillTest() {
        memory.files["/t.docx"] = wordFile("<w:p>" + placeOf("No", 1) + "</w:p>");
        options.templateFile = "/t.docx";
        options.output = "/out/{No}.docx";
    }

    /// Returns a place that shows its own name.
    static std::string placeOf(const std::string& name, int number) {
        const std::string id = "w:id=\"" + std::to_string(number) + "\"";
        return "<w:bookmarkStart " + id + " w:name=\"" + name + "\"/><w:r><w:t>" + name +
               "</w:t></w:r><w:bookmarkEnd " + id + "/>";
    }

    void writeRecords(int count) {
        std::string xml = "<db><Form Name='F'><Control Name='No'/></Form><Data>";
        for (int number = 1; number <= count; ++number)
            xml += "<Record><Control Name='No'><DisplayValue>" + std::to_string(number) + "</DisplayValue>" +
                   (number == brokenText ? "<RichText>&lt;div&gt;</RichText>" : "") + "</Control></Record>";
        folder.put("data.xml", xml + "</Data></db>");
        options.dataFile = folder / "data.xml";
    }

    /// Returns the messages, and the sentence of an error.
    std::string fill(
        FileStore& store, const std::function<bool()>& shouldStop = [] { return false; }) {
        FileStore* converted = &store;
        LabellingConverter converter{converted};
        converter.keepsRecordsApart = keepsRecordsApart;
        const OfficeFormats formats{OfficeKind::Embedded, store, converter};
        std::ostringstream report;
        std::ostringstream told;
        ConsoleMessages messages{told};
        ConsoleErrorHandler errors{told};
        NoProgress progress;
        try {
            FillCommand command{options, {formats, converter, store, errors, messages, progress}, shouldStop};
            succeeded = command.run(report);
        } catch (const AutomationError& error) {
            succeeded = false;
            return told.str() + error.description();
        }
        return told.str() + report.str();
    }

    /// Returns the existing letters, each of which must be complete.
    int letters() const {
        int count = 0;
        for (const auto& [path, bytes] : memory.files) {
            if (!path.starts_with("/out/")) continue;
            ++count;
            const std::string number = path.substr(5, path.find('.') - 5);
            EXPECT_EQ(shownBody(bytes), "[No:" + number + "]\n") << path;
        }
        return count;
    }

    void removeLetters() {
        std::erase_if(memory.files, [](const auto& file) { return file.first.starts_with("/out/"); });
    }

    /// Returns the number of converted files that begin with a text.
    int filesThatBegin(const std::string& start) const {
        return static_cast<int>(std::ranges::count_if(memory.files, [&](const auto& file) {
            return file.first.starts_with("/out/") && file.second.starts_with(start);
        }));
    }

    TemporaryFolder folder;
    MemoryFileStore memory;
    FillOptions options;
    int brokenText = 0;  ///< the number of the record whose rich text is broken
    bool keepsRecordsApart = true;
    bool succeeded = false;
};

TEST_F(FillTest, WholeLettersAreLeftWhenTheDiskIsFull) {
    writeRecords(3);
    for (int call = 1;; ++call) {
        removeLetters();
        FaultyFileStore faulty(memory, call);
        const std::string told = fill(faulty);
        const int written = letters();
        if (!faulty.hasFailed()) {
            EXPECT_TRUE(succeeded);
            EXPECT_EQ(written, 3);
            EXPECT_THAT(told, HasSubstr("3 records filled into 3 files."));
            break;
        }
        EXPECT_FALSE(succeeded);
        EXPECT_LT(written, 3);
        const std::string count = written == 1 ? "1 file was" : std::to_string(written) + " files were";
        const std::string expected =
            written == 0 ? "" : "the disk is full. Before that, " + count + " written.";
        EXPECT_THAT(told, HasSubstr(expected));
    }
}

TEST_F(FillTest, EndsAfterALetterWhenItIsStopped) {
    writeRecords(5);
    int asked = 0;
    const std::string told = fill(memory, [&] { return ++asked > 2; });
    EXPECT_FALSE(succeeded);
    EXPECT_EQ(letters(), 2);
    EXPECT_THAT(told, HasSubstr("Stopped before record 3.\n2 records filled into 2 files."));
    options.output = "/one.docx";
    options.use = letters::LetterUse::OneForAll;
    asked = 0;
    EXPECT_THAT(fill(memory, [&] { return ++asked > 2; }), HasSubstr("0 records filled into 0 files."));
    EXPECT_FALSE(memory.fileExists("/one.docx"));
}

/// Missing records of a subform are always reported.
TEST_F(FillTest, RecordsWithoutARowAreTold) {
    const std::string line = "<Record><Control Name='L'><DisplayValue>x</DisplayValue></Control></Record>";
    const std::string place = placeOf("SL", 1);
    const std::string table =
        "<w:bookmarkStart w:id=\"2\" w:name=\"S\"/><w:tbl><w:tr><w:tc><w:p/></w:tc></w:tr>"
        "</w:tbl><w:bookmarkEnd w:id=\"2\"/>";
    struct Case {
        std::string records;
        std::string body;
        std::string told;
    };
    const std::string firstOnly =
        "Only the first record is shown, since a place is in no row that repeats: S.";
    const std::string noRow = "Tables without a row that repeats: S.";
    const std::vector<Case> cases{
        {line + line, "<w:p>" + place + "</w:p>", firstOnly + "\nmergeloom: Nothing was written."},
        {line, "<w:p>" + place + "</w:p>", "1 record filled into 1 file."},
        {"", "<w:p>" + place + "</w:p>", "1 record filled into 1 file."},
        {line, table + "<w:p>" + place + "</w:p>", noRow + "\nmergeloom: Nothing was written."},
        {"", table + "<w:p>" + place + "</w:p>", "1 record filled into 1 file."}};
    options.dataFile = folder / "data.xml";
    options.output = "/out.docx";
    options.strictness = Strictness::RefusesDifferences;
    for (const Case& c : cases) {
        memory.files = {{"/t.docx", wordFile(c.body)}};
        folder.put("data.xml",
                   "<db><Form Name='F'><Control Name='S' ControlType='Subform'><Form Name='G'>"
                   "<Control Name='L'/></Form></Control></Form><Data><Record><Control Name='S'><Records>" +
                       c.records + "</Records></Control></Record></Data></db>");
        EXPECT_THAT(fill(memory), HasSubstr(c.told)) << c.records << c.body;
    }
}

/// Each difference is reported once for all records.
TEST_F(FillTest, DifferencesAreToldOnce) {
    const std::string record =
        "<Record><Control Name='No'><DisplayValue>1</DisplayValue></Control>"
        "<Control Name='Extra'><DisplayValue>x</DisplayValue></Control></Record>";
    folder.put(
        "data.xml",
        "<db><Form Name='F'><Control Name='No'/><Control Name='A B'/><Control Name='A-B'/></Form><Data>" +
            record + record + "</Data></db>");
    options.dataFile = folder / "data.xml";
    options.output = "/out/all.docx";
    options.use = letters::LetterUse::OneForAll;
    memory.files["/t.docx"] = wordFile("<w:p>" + placeOf("No", 1) + placeOf("AB", 2) + "</w:p>");
    const std::vector<std::string> sentences{"Places without data: A B.\n", "Data without a place: Extra.\n",
                                             "Names that several controls make: AB.\n"};
    for (const Strictness strictness : {Strictness::ToleratesDifferences, Strictness::RefusesDifferences}) {
        options.strictness = strictness;
        memory.files.erase("/out/all.docx");
        const std::string told = fill(memory);
        for (const std::string& sentence : sentences) {
            EXPECT_THAT(told, HasSubstr(sentence));
            EXPECT_EQ(told.find(sentence), told.rfind(sentence));
        }
        EXPECT_EQ(memory.fileExists("/out/all.docx"), strictness == Strictness::ToleratesDifferences);
    }
}

TEST_F(FillTest, TheRecordsAreThoseOfTheNamedObject) {
    folder.put(
        "data.xml",
        "<db><Form Name='F'><Control Name='No'/></Form><Form Name='G'><Control Name='Other'/></Form><Data>"
        "<Record><Control Name='Other'><DisplayValue>x</DisplayValue></Control></Record></Data></db>");
    options.dataFile = folder / "data.xml";
    options.output = "/out/letter.docx";
    memory.files["/t.docx"] = wordFile("<w:p>" + placeOf("Other", 1) + "</w:p>");
    EXPECT_THAT(fill(memory), HasSubstr("has no place that a control of Form \"F\" fills"));
    options.object = "G";
    fill(memory);
    EXPECT_EQ(shownBody(memory.files["/out/letter.docx"]), "[Other:x]\n");
}

TEST_F(FillTest, RefusedTemplatesAreTold) {
    writeRecords(1);
    const std::string body = "<w:p>" + placeOf("No", 1) + "</w:p>";
    opc::Package macros = opc::Package::read(wordFile(body), "t.docm");
    macros.addPart("/word/vbaProject.bin", "application/vnd.ms-office.vbaProject", "VBA");
    macros.relationshipsOf(kMainPart).addPart(
        "http://schemas.microsoft.com/office/2006/relationships/vbaProject", "/word/vbaProject.bin");
    struct Case {
        std::string file;
        std::string told;
    };
    const std::vector<Case> cases{
        {fileWithSettings(body, "<w:documentProtection w:edit=\"readOnly\" w:enforcement=\"1\"/>"),
         "The place \"No\" cannot be filled: The document '/t.docx' is protected"},
        {packageBytes(macros), "The file '/out.docx' cannot be saved: the document holds macros"},
    };
    options.output = "/out.docx";
    for (const Case& c : cases) {
        memory.files = {{"/t.docx", c.file}};
        EXPECT_THAT(fill(memory), HasSubstr(c.told));
        EXPECT_EQ(memory.files.size(), 1U);
    }
}

TEST_F(FillTest, OtherFormatsAreConverted) {
    writeRecords(1);
    options.output = "/letter.pdf";
    fill(memory);
    EXPECT_TRUE(succeeded);
    EXPECT_TRUE(memory.files["/letter.pdf"].starts_with("format 17\n"));
}

/// Several records share a document for the conversion, unless their pages cannot be distinguished.
TEST_F(FillTest, RecordsAreConvertedTogether) {
    writeRecords(100);
    options.output = "/out/{No}.pdf";
    EXPECT_THAT(fill(memory), HasSubstr("100 records filled into 100 files."));
    EXPECT_EQ(filesThatBegin("record "), 100);
    EXPECT_TRUE(memory.files["/out/2.pdf"].starts_with("record 1\n"));
    const int documents = filesThatBegin("record 0\n");
    EXPECT_GT(documents, 1);
    EXPECT_LT(documents, 10);
    removeLetters();
    keepsRecordsApart = false;
    EXPECT_THAT(fill(memory), HasSubstr("100 records filled into 100 files."));
    EXPECT_EQ(filesThatBegin("format 17\n"), 100);
}

TEST_F(FillTest, FilesOfSharedDocumentsAreCountedWhenTheDiskIsFull) {
    writeRecords(3);
    options.output = "/out/{No}.pdf";
    for (int call = 1;; ++call) {
        removeLetters();
        FaultyFileStore faulty(memory, call);
        const std::string told = fill(faulty);
        if (!faulty.hasFailed()) break;
        // A template that cannot be read a second time only makes the run slower.
        if (succeeded) continue;
        const int written = filesThatBegin("record ") + filesThatBegin("format ");
        const std::string count = written == 1 ? "1 file was" : std::to_string(written) + " files were";
        EXPECT_EQ(written > 0, told.find("Before that, " + count + " written.") != std::string::npos) << told;
    }
    EXPECT_EQ(filesThatBegin("record "), 3);
}

TEST_F(FillTest, PartsOfTheRecordsHaveTheNamesOfTheWhole) {
    writeRecords(5);
    options.firstRecord = 2;
    options.lastRecord = 3;
    fill(memory);
    EXPECT_EQ(letters(), 2);
    EXPECT_TRUE(memory.fileExists("/out/2.docx"));
    EXPECT_TRUE(memory.fileExists("/out/3.docx"));
}

/// A store for several threads, which fails to save one path.
class SharedStore final : public FileStore {
  public:
    SharedStore(FileStore& store, std::string failing) : store_(store), failing_(std::move(failing)) {}

    bool fileExists(const std::string& path) override {
        const std::scoped_lock lock(mutex_);
        return store_.fileExists(path);
    }
    std::string read(const std::string& path) override {
        const std::scoped_lock lock(mutex_);
        return store_.read(path);
    }
    void save(const std::string& path, const std::function<void(ByteSink&)>& writer) override {
        MemoryFileStore own;
        own.save(path, writer);
        const std::scoped_lock lock(mutex_);
        if (path == failing_)
            throw AutomationError(kFileCouldNotBeSaved, "'" + path + "': the disk is full.");
        store_.save(path, [&](ByteSink& sink) { sink.write(own.files.at(path)); });
    }

  private:
    std::mutex mutex_;
    FileStore& store_;
    std::string failing_;
};

/// A number of records that several threads fill if there are several processors.
TEST_F(FillTest, ManyLettersAreFilledAsFewOnes) {
    constexpr int kMany = 250;
    brokenText = 7;
    writeRecords(kMany);
    SharedStore whole(memory, "");
    EXPECT_EQ(fill(whole),
              "mergeloom: The rich text of No is broken; its plain text was taken.\n"
              "250 records filled into 250 files.\n");
    EXPECT_EQ(letters(), kMany);

    removeLetters();
    int asked = 0;
    EXPECT_THAT(fill(whole, [&] { return ++asked > 210; }),
                HasSubstr("Stopped before record 211.\n210 records filled into 210 files."));
    EXPECT_EQ(letters(), 210);

    for (const int failing : {120, kMany}) {
        removeLetters();
        const std::string path = "/out/" + std::to_string(failing) + ".docx";
        SharedStore full(memory, path);
        const std::string told = fill(full);
        EXPECT_FALSE(succeeded);
        EXPECT_GE(letters(), failing - 1);
        EXPECT_LT(letters(), kMany);
        EXPECT_EQ(told, "'" + path + "': the disk is full. Before that, " + std::to_string(letters()) +
                            " files were written.");
    }
}

}  // namespace
}  // namespace mergeloom
