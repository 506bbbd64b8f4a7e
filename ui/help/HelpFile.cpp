#include "ui/help/HelpFile.h"

#include "ui/help/HelpSitemap.h"

#include <QTextDocument>
#include <QtEndian>

namespace mergeloom {

namespace {

// The pieces of "/#SYSTEM" that name what belongs together, by their numbers.
constexpr quint16 kContentsPiece = 0;
constexpr quint16 kIndexPiece = 1;
constexpr quint16 kDefaultTopicPiece = 2;
constexpr quint16 kTitlePiece = 3;
constexpr qsizetype kSystemHeader = 4;
constexpr qsizetype kPieceHeader = 4;
constexpr qsizetype kContextHeader = 4;
constexpr qsizetype kContextSize = 8;

template <class Number>
Number numberAt(const QByteArray& bytes, qsizetype position) {
    return qFromLittleEndian<Number>(bytes.constData() + position);
}

/// The text from the position up to the next zero byte or the end.
QString textAt(const QByteArray& bytes, qsizetype position) {
    const qsizetype end = bytes.indexOf('\0', position);
    return QString::fromUtf8(bytes.mid(position, end < 0 ? -1 : end - position));
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
        const auto number = numberAt<quint16>(*system, at);
        const auto length = numberAt<quint16>(*system, at + 2);
        const QString text = textAt(system->mid(at + kPieceHeader, length), 0);
        if (number == kContentsPiece) contentsName_ = text;
        if (number == kIndexPiece) indexName_ = text;
        if (number == kDefaultTopicPiece) defaultTopic_ = normalizedTopic(text);
        if (number == kTitlePiece) title_ = text;
        at += kPieceHeader + length;
    }
}

void HelpFile::readContexts() {
    const std::optional<QByteArray> table = archive_.read(QStringLiteral("#IVB"));
    const std::optional<QByteArray> texts = archive_.read(QStringLiteral("#STRINGS"));
    if (!table || !texts) return;
    for (qsizetype at = kContextHeader; at + kContextSize <= table->size(); at += kContextSize) {
        const auto position = static_cast<qsizetype>(numberAt<quint32>(*table, at + 4));
        if (position >= texts->size()) archive_.refuseDamaged();
        contexts_[numberAt<quint32>(*table, at)] = normalizedTopic(textAt(*texts, position));
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
