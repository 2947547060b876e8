#pragma once

#include "Color.h"

#include <QAbstractListModel>
#include <QStringList>
#include <vector>

namespace pomwick {

// The rows of one of the font picker's wheels: faces, sizes or colors, each row's text, font,
// colors, alignment and spoken name as roles. The picker hands a whole list over at once, so the
// rows change only by a reset.
class FontPickerRows : public QAbstractListModel {
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    void showFaces(const QStringList& faces);
    void showSizes(const std::vector<float>& sizes);
    // Solid rows are blocks of their color; others are two glyphs of it on clear.
    void showColors(const std::vector<Color>& colors, bool solid);
    // Shown on every face row in place of the face's name, when not empty.
    void setSampleText(const QString& text);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    enum class Kind { Faces, Sizes, Colors };
    void show(Kind kind, const QStringList& faces, const std::vector<float>& sizes,
              const std::vector<Color>& colors);
    QVariant faceData(const QString& face, int role) const;
    QVariant sizeData(float size, int role) const;
    QVariant colorData(const Color& color, int role) const;

    Kind kind_ = Kind::Faces;
    QStringList faces_;
    std::vector<float> sizes_;
    std::vector<Color> colors_;
    bool solid_ = true;
    QString sample_;
};

} // namespace pomwick
