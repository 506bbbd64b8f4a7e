#include "ui/help/HelpSitemap.h"

#include <QMap>
#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <QUrl>

namespace mergeloom {

namespace {

/// Lists nested deeper than this continue the one at this depth.
constexpr std::size_t kMaxListDepth = 50;

/// Returns the attributes of a tag by their names in lower case.
QMap<QString, QString> attributes(const QString& tag) {
    static const QRegularExpression pattern(
        QStringLiteral(R"re(([\w-]+)\s*=\s*(?:"([^"]*)"|'([^']*)'|([^\s>]+)))re"));
    QMap<QString, QString> found;
    for (const QRegularExpressionMatch& match : pattern.globalMatch(tag)) {
        found[match.captured(1).toLower()] = match.captured(2) + match.captured(3) + match.captured(4);
    }
    return found;
}

QString withoutEntities(const QString& text) {
    return text.contains(u'&') ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

/// Builds the lists from the tags in their order.
class SitemapReader {
  public:
    void take(const QString& name, bool closes, const QString& tag) {
        if (name == QLatin1String("ul")) {
            closes ? endList() : beginList();
        } else if (name == QLatin1String("object")) {
            closes ? endObject() : beginObject(tag);
        } else if (isInEntry_) {
            takeParameter(tag);
        }
    }

    std::vector<HelpEntry> entries() { return std::move(top_); }

  private:
    void beginList() {
        ++depth_;
        if (lists_.size() > kMaxListDepth || lists_.back()->empty() || depth_ == 1) {
            lists_.push_back(lists_.back());
        } else {
            lists_.push_back(&lists_.back()->back().children);
        }
    }

    void endList() {
        if (depth_ == 0) return;
        --depth_;
        lists_.pop_back();
    }

    void beginObject(const QString& tag) {
        const QString type = attributes(tag).value(QStringLiteral("type"));
        isInEntry_ = type.compare(u"text/sitemap", Qt::CaseInsensitive) == 0;
        entry_ = {};
    }

    void endObject() {
        if (isInEntry_ && !entry_.title.isEmpty()) lists_.back()->push_back(entry_);
        isInEntry_ = false;
    }

    /// Reads a parameter. An entry of an index may have several names and places; the first of each counts.
    void takeParameter(const QString& tag) {
        const QMap<QString, QString> found = attributes(tag);
        const QString name = found.value(QStringLiteral("name"));
        const QString value = withoutEntities(found.value(QStringLiteral("value")));
        if (name.compare(u"Name", Qt::CaseInsensitive) == 0 && entry_.title.isEmpty()) entry_.title = value;
        if (name.compare(u"Local", Qt::CaseInsensitive) == 0 && entry_.topic.isEmpty()) {
            entry_.topic = normalizedTopic(value);
        }
    }

    std::vector<HelpEntry> top_;
    std::vector<std::vector<HelpEntry>*> lists_{&top_};
    std::size_t depth_ = 0;
    HelpEntry entry_;
    bool isInEntry_ = false;
};

}  // namespace

std::vector<HelpEntry> readSitemap(const QString& html) {
    static const QRegularExpression tags(QStringLiteral(R"(<(/?)(ul|object|param)\b[^>]*>)"),
                                         QRegularExpression::CaseInsensitiveOption);
    SitemapReader reader;
    for (const QRegularExpressionMatch& match : tags.globalMatch(html)) {
        reader.take(match.captured(2).toLower(), !match.captured(1).isEmpty(), match.captured());
    }
    return reader.entries();
}

QString normalizedTopic(const QString& link) {
    QString path = QUrl::fromPercentEncoding(link.toUtf8());
    path.replace(u'\\', u'/');
    while (path.startsWith(u'/') || path.startsWith(u"./"))
        path.remove(0, path.startsWith(u'/') ? 1 : 2);
    return path;
}

}  // namespace mergeloom
