#include "AutoMappingTest.h"
#include "app/MergeloomErrorCodes.h"
#include "base/Text.h"
#include "doubles/WordFiles.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

using testing::HasSubstr;

/// Mappings of objects that the options choose.
class MappedObjects : public AutoMappingTest {
  protected:
    void putDocuments() override {
        folder.put("many.xml",
                   "<db><Form Name='Letter' CurrentView='1'><Control Name='L'/></Form>"
                   "<Table Name='Orders' CurrentView='2'><Control Name='T'/></Table>"
                   "<FORM Name='Orders' CurrentView='1'><Control Name='F'/></FORM>"
                   "<Form Name='Raw' CurrentView='0'><Control Name='R'/></Form>"
                   "<Form Name='orders' CurrentView='1'><Control Name='S'/></Form>"
                   "<Query Name='In/Out' CurrentView='2'><Control Name='Q'/></Query></db>");
        std::filesystem::create_directory(folder / "all");
    }

    void runAll(std::vector<std::string> switches = {}, const std::string& structure = "%/many.xml") {
        options.folder = folder / "all";
        switches.insert(switches.begin(), {"-xmlfile", structure});
        EXPECT_EQ(run(switches), 0U);
    }

    std::vector<std::string> templates() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder / "all"))
            names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }
    std::string body(const std::string& name) const { return shownBody(folder.bytesOf("all/" + name)); }
};

TEST_F(MappedObjects, AreChosenByName) {
    const struct {
        std::string name, expected;  ///< what is in the template, or the sentence that refuses
    } cases[] = {
        {"", "L: [L:L]\n\n"},
        {"Letter", "L: [L:L]\n\n"},
        {"LETTER", "L: [L:L]\n\n"},
        {"in/out", "\n[InOutT:Q\n|[Q:Q] \n|]\n"},
        {"table orders", "\n[OrdersT:T\n|[T:T] \n|]\n"},
        {"orders", "S: [S:S]\n\n"},
        {"Orders",
         "The name \"Orders\" is that of several objects: Table \"Orders\", Form \"Orders\". Write the "
         "kind before it, such as \"Table Orders\".\n"},
        {"None",
         "The structure document has no object \"None\". It has Form \"Letter\", Table \"Orders\", Form "
         "\"Orders\", Form \"Raw\", Form \"orders\", Query \"In/Out\".\n"},
    };
    for (const auto& [name, expected] : cases) {
        messages.messages.clear();
        options.object = name;
        EXPECT_EQ(run({"-hidden", "-xmlfile", "%/many.xml", "-template", "%/new.dotx"}), 0U);
        EXPECT_EQ(made ? shownBody(folder.bytesOf("new.dotx")) : messages.texts(), expected) << name;
        std::filesystem::remove(folder / "new.dotx");
    }
}

TEST_F(MappedObjects, EachGetsATemplate) {
    runAll();
    EXPECT_FALSE(made);
    EXPECT_EQ(startedWords, 1);
    EXPECT_THAT(templates(), testing::ElementsAre("In_Out.dotx", "Letter.dotx", "Orders.dotx",
                                                  "Orders_2.dotx", "orders_3.dotx"));
    EXPECT_EQ(body("Orders.dotx"), "\n[OrdersT:T\n|[T:T] \n|]\n");
    EXPECT_EQ(body("Orders_2.dotx"), "F: [F:F]\n\n");
    const std::string own = "', since its own name is taken or cannot be that of a file.\n";
    EXPECT_EQ(messages.texts(), "The template of Form \"Orders\" is called 'Orders_2.dotx" + own +
                                    "The template of Form \"orders\" is called 'orders_3.dotx" + own +
                                    "The template of Query \"In/Out\" is called 'In_Out.dotx" + own +
                                    "Form \"Raw\": Support for Design view is not realised yet.\n"
                                    "5 of 6 templates were made. Refused: Form \"Raw\".\n");
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(MappedObjects, TheSwitchesHoldForAll) {
    folder.put("given.docx", wordFile("<w:p><w:r><w:t>Dear</w:t></w:r></w:p>"));
    options.format = "docx";
    options.at = "end";
    runAll({"-listing", "-fields", "R, T", "-usedocument", "%/given.docx"});
    EXPECT_THAT(templates(), testing::ElementsAre("Orders.docx", "Raw.docx"));
    EXPECT_EQ(body("Raw.docx"), "Dear\n\n[RawT:R\n|[R:R] \n|]\n");
    EXPECT_THAT(messages.texts(), HasSubstr("Form \"Letter\": FieldList is incorrect.\n"));
    EXPECT_THAT(messages.texts(), HasSubstr("2 of 6 templates were made. Refused: Form \"Letter\", Form "
                                            "\"Orders\", Form \"orders\", Query \"In/Out\".\n"));
}

TEST_F(MappedObjects, AnImpossibleOrderWritesNothing) {
    folder.put("all/Letter.dotx", "precious");
    folder.put("all/in_out.dotx", "another");
    folder.put("all/In_Out.dotx", "precious");
    const struct {
        MappingOptions options;
        std::vector<std::string> switches;
        std::string expected;
    } cases[] = {
        {{},
         {},
         "No template was made: the folder '%/all' has files of their names already: 'Letter.dotx', "
         "'In_Out.dotx'.\n"},
        {{.folder = "%/none"}, {}, "There is no folder '%/none' for the templates.\n"},
        {{.format = "foo"}, {}, "The template '%/all/Letter.foo' has no file extension that Word knows.\n"},
        {{.at = "end"}, {}, "Option '--at' needs a document to build on; name it with -usedocument.\n"},
        {{},
         {"-template", "%/new.dotx"},
         "The switch -template has no meaning behind '--all': each template is "
         "called after its object. '--format' chooses their extension.\n"},
    };
    for (const auto& [given, switches, expected] : cases) {
        messages.messages.clear();
        options = given;
        options.folder = replaceAll(given.folder.empty() ? "%/all" : given.folder, "%", folder.path());
        std::vector<std::string> arguments{"-xmlfile", "%/many.xml"};
        arguments.insert(arguments.end(), switches.begin(), switches.end());
        EXPECT_EQ(run(arguments), 0U);
        EXPECT_EQ(messages.texts(), replaceAll(expected, "%", folder.path()));
        EXPECT_EQ(startedWords, 0);
        EXPECT_EQ(templates().size(), 3U);
    }
    EXPECT_EQ(folder.bytesOf("all/Letter.dotx"), "precious");
    options = {};
    options.folder = folder / "all";
    EXPECT_EQ(run({"-xmlfile", "%/empty.xml"}), kXmlFileIncorrect);
}

TEST_F(MappedObjects, AStopLeavesWholeTemplates) {
    isStopped = [this] { return templates().size() == 2; };
    runAll();
    EXPECT_FALSE(made);
    EXPECT_EQ(templates().size(), 2U);
    EXPECT_THAT(
        messages.texts(),
        HasSubstr("2 of 6 templates were made; the mapping ended at Form \"Orders\":\nIt was stopped.\n"));
}

TEST_F(MappedObjects, AFullDiskLeavesWholeTemplates) {
    int failures = 0;
    for (bool failed = true; failed; ++failures) {
        std::filesystem::remove_all(folder / "all");
        std::filesystem::create_directory(folder / "all");
        messages.messages.clear();
        errors.reports.clear();
        FaultyFileStore faulty{disk, failures + 1};
        store = &faulty;
        runAll();
        store = &disk;
        failed = faulty.hasFailed();
        EXPECT_EQ(errors.reports.size(), failed ? 1U : 0U);
        const std::vector<std::string> names = templates();
        EXPECT_THAT(messages.texts(), HasSubstr(std::to_string(names.size()) + " of 6 templates were made"));
        for (const std::string& name : names)
            EXPECT_THAT(body(name), HasSubstr("[")) << name;
    }
    EXPECT_GT(failures, 5) << "each template is saved once";
}

}  // namespace
}  // namespace mergeloom
