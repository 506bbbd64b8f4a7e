#pragma once

#include "ui/designer/TreeIcons.h"

#include <QAbstractListModel>
#include <QFont>
#include <QList>
#include <QSize>
#include <QString>

namespace mergeloom {

/// A place of the document, the name of its source and the key of the source's picture. They are empty if the
/// source is unknown.
struct PlaceEntry {
    QString name;
    QString source{};
    QString iconKey{};

    friend bool operator==(const PlaceEntry&, const PlaceEntry&) = default;
};

/// The places of the document as rows. Items would take a tenth of a second for 20,000 places after each
/// drop.
class PlacesModel final : public QAbstractListModel {
    Q_OBJECT

  public:
    PlacesModel(const QPalette& palette, QObject* parent) : QAbstractListModel(parent), icons_(palette) {}

    /// Replaces the rows by the places in the order of their names. Returns false if they are the same.
    bool setPlaces(QList<PlaceEntry> places);
    /// Sets the colors of pictures and the font in which the width of the rows is measured.
    void setLook(const QPalette& palette, const QFont& font);

    /// Returns the size of the pictures.
    [[nodiscard]] static QSize iconSize() { return {kIconSide, kIconSide}; }
    /// Returns the name in a row; empty for no row.
    [[nodiscard]] QString nameAt(int row) const { return places_.value(row).name; }
    /// Returns the row of a name; -1 for none.
    [[nodiscard]] int rowOf(const QString& name) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// Emits renameRequested for another name. The row has the former name until the document has the new
    /// one.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

  Q_SIGNALS:
    void renameRequested(const QString& name, const QString& newName);

  private:
    static constexpr int kIconSide = 16;

    void measure();

    QList<PlaceEntry> places_;
    mutable TreeIcons icons_;
    QFont font_;
    QSize rowSize_;  ///< of all rows alike
};

}  // namespace mergeloom
