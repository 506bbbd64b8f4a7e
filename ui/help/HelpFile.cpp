#include "ui/help/HelpFile.h"

#include "ui/help/HelpSitemap.h"

#include <QTextDocument>
#include <QtEndian>

namespace mergeloom {

namespace {

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
