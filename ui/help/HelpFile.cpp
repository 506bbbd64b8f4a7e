#include "ui/help/HelpFile.h"

#include "base/AutomationError.h"
#include "base/Paths.h"

#include <chm_lib.h>

#include <QRegularExpression>
#include <QTextDocument>
#include <QtEndian>
#include <algorithm>
#include <cstring>
#include <utility>

namespace mergeloom {

namespace {

// A damaged file may state any size and any number of files.
constexpr LONGUINT64 kMaxFileSize = 64U << 20U;
constexpr qsizetype kMaxFiles = 100'000;

int addName(chmFile* /*file*/, chmUnitInfo* unit, void* names) {
    auto& list = *static_cast<QStringList*>(names);
    list.append(QString::fromUtf8(unit->path).mid(1));
    return list.size() < kMaxFiles ? CHM_ENUMERATOR_CONTINUE : CHM_ENUMERATOR_FAILURE;
}

constexpr int kTitleWeight = 20;
constexpr int kTextWeight = 1;

QStringList wordsOf(const QString& text) {
    static const QRegularExpression gaps(QStringLiteral("[^\\w]+"),
                                         QRegularExpression::UseUnicodePropertiesOption);
    return text.toCaseFolded().split(gaps, Qt::SkipEmptyParts);
}

// The pieces of "/#SYSTEM" that name the contents and the index, by their numbers.
constexpr quint16 kContentsPiece = 0;
constexpr quint16 kIndexPiece = 1;
constexpr quint16 kDefaultTopicPiece = 2;
constexpr quint16 kTitlePiece = 3;
constexpr qsizetype kSystemHeader = 4;
constexpr qsizetype kPieceHeader = 4;
/// The file with a line for each context number: the number, a blank and a topic. The compiler of help files
/// would write its own table, but with the paths of the machine that it runs on.
const QString kContextsName = QStringLiteral("contexts.txt");

quint16 numberAt(const QByteArray& bytes, qsizetype position) {
    return qFromLittleEndian<quint16>(bytes.constData() + position);
}

/// Returns the text up to the first zero byte or the end.
QString textOf(const QByteArray& bytes) {
    return QString::fromUtf8(bytes.left(bytes.indexOf('\0')));
}

bool isTopic(const QString& name) {
    return name.endsWith(QLatin1String(".html"), Qt::CaseInsensitive) ||
           name.endsWith(QLatin1String(".htm"), Qt::CaseInsensitive);
}

}  // namespace

ChmArchive::ChmArchive(const std::string& path) : path_(path) {
    if (!fileExists(path)) {
        throw AutomationError(kFileCouldNotBeRead, "The help file '" + path + "' is not there.");
    }
    chmFile* const file = chm_open(path.c_str());
    if (file == nullptr) {
        throw AutomationError(kFileCouldNotBeRead,
                              "'" + path + "' cannot be read as a help file. Install the program anew.");
    }
    file_ = std::shared_ptr<chmFile>(file, chm_close);
}

std::optional<QByteArray> ChmArchive::read(const QString& name) const {
    const QByteArray inside = "/" + name.toUtf8();
    chmUnitInfo unit{};
    if (inside.size() > CHM_MAX_PATHLEN ||
        chm_resolve_object(file_.get(), inside.constData(), &unit) != CHM_RESOLVE_SUCCESS) {
        return std::nullopt;
    }
    if (unit.length > kMaxFileSize) refuseDamaged();
    QByteArray bytes(static_cast<qsizetype>(unit.length), '\0');
    if (bytes.isEmpty()) return bytes;
    const LONGINT64 count = chm_retrieve_object(
        file_.get(), &unit, reinterpret_cast<unsigned char*>(bytes.data()), 0, bytes.size());
    if (count != bytes.size()) refuseDamaged();
    return bytes;
}

QStringList ChmArchive::names() const {
    QStringList list;
    const int kinds = CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES;
    if (chm_enumerate(file_.get(), kinds, addName, &list) == 0) refuseDamaged();
    return list;
}

void ChmArchive::refuseDamaged() const {
    throw AutomationError(kFileCouldNotBeRead,
                          "The help file '" + path_ + "' is damaged. Install the program anew.");
}

void HelpSearch::addTopic(const QString& topic, const QString& title, const QString& text) {
    topics_.push_back({title, topic});
    addWords(title, kTitleWeight);
    addWords(text, kTextWeight);
}

void HelpSearch::addWords(const QString& text, int weight) {
    for (const QString& word : wordsOf(text)) {
        words_[word][topics_.size() - 1] += weight;
    }
}

HelpSearch::Weights HelpSearch::weightsOf(const QString& beginning) const {
    Weights weights;
    for (auto at = words_.lower_bound(beginning); at != words_.end() && at->first.startsWith(beginning);
         ++at) {
        for (const auto& [topic, weight] : at->second) {
            weights[topic] += weight;
        }
    }
    return weights;
}

std::vector<HelpHit> HelpSearch::find(const QString& query) const {
    const QStringList words = wordsOf(query);
    if (words.isEmpty()) return {};
    Weights common = weightsOf(words.front());
    for (const QString& word : words.mid(1)) {
        const Weights further = weightsOf(word);
        std::erase_if(common, [&](const auto& entry) { return !further.contains(entry.first); });
        for (auto& [topic, weight] : common) {
            weight += further.at(topic);
        }
    }
    std::vector<std::pair<std::size_t, int>> order(common.begin(), common.end());
    std::ranges::stable_sort(order, std::ranges::greater(), &std::pair<std::size_t, int>::second);
    std::vector<HelpHit> hits;
    std::ranges::transform(order, std::back_inserter(hits),
                           [&](const auto& entry) { return topics_[entry.first]; });
    return hits;
}

HelpFile::HelpFile(const std::string& path) : archive_(path) {
    readSystem();
    readContexts();
    contents_ = readEntries(contentsName_);
    index_ = readEntries(indexName_);
}

void HelpFile::readSystem() {
    const std::optional<QByteArray> system = archive_.read(QStringLiteral("#SYSTEM"));
    if (!system) archive_.refuseDamaged();
    for (qsizetype at = kSystemHeader; at + kPieceHeader <= system->size();) {
        const auto number = numberAt(*system, at);
        const auto length = numberAt(*system, at + 2);
        const QString text = textOf(system->mid(at + kPieceHeader, length));
        if (number == kContentsPiece) contentsName_ = text;
        if (number == kIndexPiece) indexName_ = text;
        if (number == kDefaultTopicPiece) defaultTopic_ = normalizedTopic(text);
        if (number == kTitlePiece) title_ = text;
        at += kPieceHeader + length;
    }
}

void HelpFile::readContexts() {
    const QByteArray lines = archive_.read(kContextsName).value_or(QByteArray());
    for (const QByteArray& line : lines.split('\n')) {
        const QList<QByteArray> words = line.simplified().split(' ');
        bool isNumber = false;
        const std::uint32_t number = words.front().toUInt(&isNumber);
        if (isNumber && words.size() == 2)
            contexts_[number] = normalizedTopic(QString::fromUtf8(words.back()));
    }
}

std::vector<HelpEntry> HelpFile::readEntries(const QString& name) const {
    const std::optional<QByteArray> bytes = name.isEmpty() ? std::nullopt : archive_.read(name);
    return bytes ? readSitemap(QString::fromUtf8(*bytes)) : std::vector<HelpEntry>();
}

QStringList HelpFile::topics() const {
    QStringList names = archive_.names();
    names.removeIf([](const QString& name) { return !isTopic(name); });
    return names;
}

std::optional<QString> HelpFile::topicHtml(const QString& topic) const {
    const QString name = normalizedTopic(topic).section(u'#', 0, 0);
    const std::optional<QByteArray> bytes = isTopic(name) ? archive_.read(name) : std::nullopt;
    return bytes ? std::optional(QString::fromUtf8(*bytes)) : std::nullopt;
}

std::optional<QByteArray> HelpFile::read(const QString& name) const {
    return archive_.read(normalizedTopic(name));
}

std::vector<HelpHit> HelpFile::search(const QString& query) {
    if (!search_) search_ = makeSearch();
    return search_->find(query);
}

HelpSearch HelpFile::makeSearch() const {
    HelpSearch search;
    for (const QString& topic : topics()) {
        QTextDocument document;
        document.setHtml(topicHtml(topic).value_or(QString()));
        const QString title = document.metaInformation(QTextDocument::DocumentTitle);
        search.addTopic(topic, title.isEmpty() ? topic : title, document.toPlainText());
    }
    return search;
}

}  // namespace mergeloom
