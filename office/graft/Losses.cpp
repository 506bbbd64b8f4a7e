#include "office/graft/Losses.h"

#include "base/AutomationError.h"
#include "office/opc/Package.h"
#include "office/opc/PartName.h"

#include <string_view>
#include <vector>

namespace mergeloom::graft {

namespace {

/// A feature that users would miss, and the text in a package's XML that shows its use.
struct Loss {
    std::string_view mark;
    std::string_view name;
};

constexpr Loss kInXml[] = {
    {"<w:sdt>", "content controls"},
    {"w:themeColor=", "theme colours"},
    {"Theme=\"", "theme fonts"},
    {"<w:ffData>", "form fields"},
    {"<w:ins ", "tracked changes"},
    {"<w:documentProtection ", "the document's protection"},
    {"<w:dataBinding ", "bindings to custom XML"},
    {"<m:oMath", "formulas"},
    {"<w14:", "effects of text"},
    {"<w:compatSetting ", "compatibility settings"},
    {"<w:docVar ", "document variables"},
    {"<w:mailMerge>", "the mail merge's settings"},
    {"<w:smartTag ", "smart tags"},
    {" theme=\"", "theme colours"},
    {"<scheme val=", "theme fonts"},
    {":sparkline>", "sparklines"},
    {" cm=\"", "dynamic arrays"},
};

constexpr Loss kInNames[] = {
    {"/customXml/item", "custom XML"},
    {"/vbaProject.bin", "macros"},
    {"/vbaProjectSignature", "the macros' signature"},
    {"/glossary/", "building blocks"},
    {"/customUI", "the ribbon's changes"},
    {"/fonts/", "embedded fonts"},
    {"/charts/", "parts of charts"},
    {"/diagrams/", "parts of diagrams"},
    {"/webExtensions/", "web extensions"},
    {"/printerSettings", "printer settings"},
    {"/chartsheets/", "chart sheets"},
    {"/slicers/", "slicers"},
    {"/timelines/", "timelines"},
    {"/threadedComments/", "threads of comments"},
    {"/queryTables/", "queries"},
    {"/connections.xml", "connections"},
    {"/xmlMaps.xml", "maps of XML"},
    {"/model/", "the data model"},
};

std::size_t countIn(std::string_view text, std::string_view mark) {
    std::size_t count = 0;
    for (std::size_t at = text.find(mark); at != std::string_view::npos; at = text.find(mark, at + 1))
        ++count;
    return count;
}

std::vector<std::size_t> countsOf(const std::string& bytes) {
    const opc::Package package = opc::Package::read(bytes, "package");
    std::vector<std::size_t> counts(std::size(kInXml) + std::size(kInNames));
    for (const std::string& name : package.partNames()) {
        for (std::size_t i = 0; i < std::size(kInNames); ++i)
            counts[std::size(kInXml) + i] += countIn(name, kInNames[i].mark);
        if (opc::extensionOf(name) != "xml") continue;
        const std::string xml = package.readPart(name);
        for (std::size_t i = 0; i < std::size(kInXml); ++i)
            counts[i] += countIn(xml, kInXml[i].mark);
    }
    return counts;
}

}  // namespace

std::string lossesBetween(const std::string& original, const std::string& exported) try {
    const std::vector<std::size_t> had = countsOf(original);
    const std::vector<std::size_t> has = countsOf(exported);
    std::string losses;
    for (std::size_t i = 0; i < had.size(); ++i) {
        if (has[i] >= had[i]) continue;
        const Loss& loss = i < std::size(kInXml) ? kInXml[i] : kInNames[i - std::size(kInXml)];
        losses.append(losses.empty() ? "" : ", ").append(loss.name);
    }
    return losses;
} catch (const AutomationError&) {
    return {};
}

}  // namespace mergeloom::graft
