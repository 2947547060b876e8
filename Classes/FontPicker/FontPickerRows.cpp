#include "FontPickerRows.h"

#include "ColorDescription.h"
#include "FontCatalogue.h"
#include "QtConversions.h"

#include <QFont>
#include <cmath>

namespace pomwick {
namespace {

constexpr float faceRowSize = 18;
// That face draws far larger than its nominal size.
constexpr float zapfinoRowSize = 12.006f;
const QString twoFullBlocks = QStringLiteral("\u2588\u2588");

QString sizeText(float size) {
    return std::floor(size) == size ? QString::asprintf("%2.0f", double(size))
                                    : QString::asprintf("%.1f", double(size));
}

} // namespace

void FontPickerRows::show(Kind kind, const QStringList& faces, const std::vector<float>& sizes,
                          const std::vector<Color>& colors) {
    beginResetModel();
    kind_ = kind;
    faces_ = faces;
    sizes_ = sizes;
    colors_ = colors;
    endResetModel();
}

void FontPickerRows::showFaces(const QStringList& faces) {
    show(Kind::Faces, faces, {}, {});
}

void FontPickerRows::showSizes(const std::vector<float>& sizes) {
    show(Kind::Sizes, {}, sizes, {});
}

void FontPickerRows::showColors(const std::vector<Color>& colors, bool solid) {
    solid_ = solid;
    show(Kind::Colors, {}, {}, colors);
}

void FontPickerRows::setSampleText(const QString& text) {
    sample_ = text;
    if (kind_ == Kind::Faces && !faces_.isEmpty())
        emit dataChanged(index(0), index(int(faces_.size()) - 1), {Qt::DisplayRole});
}

int FontPickerRows::rowCount(const QModelIndex& parent) const {
    if (parent.isValid())
        return 0;
    switch (kind_) {
    case Kind::Faces:
        return int(faces_.size());
    case Kind::Sizes:
        return int(sizes_.size());
    case Kind::Colors:
        return int(colors_.size());
    }
    return 0;
}

QVariant FontPickerRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const auto row = size_t(index.row());
    switch (kind_) {
    case Kind::Faces:
        return faceData(faces_[index.row()], role);
    case Kind::Sizes:
        return sizeData(sizes_[row], role);
    case Kind::Colors:
        return colorData(colors_[row], role);
    }
    return {};
}

QVariant FontPickerRows::faceData(const QString& face, int role) const {
    switch (role) {
    case Qt::DisplayRole:
        return sample_.isEmpty() ? face : sample_;
    case Qt::AccessibleTextRole:
        return face;
    case Qt::FontRole: {
        const float size = face.startsWith(QLatin1String("Zapfino")) ? zapfinoRowSize : faceRowSize;
        return toQFont(FontCatalogue::shared().fontWithName(face.toStdString(), size));
    }
    case Qt::TextAlignmentRole:
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    default:
        return {};
    }
}

// Size and color rows keep the rows' plain font.
QVariant FontPickerRows::sizeData(float size, int role) const {
    switch (role) {
    case Qt::DisplayRole:
        return sizeText(size);
    case Qt::AccessibleTextRole:
        return sizeText(size).trimmed();
    case Qt::FontRole:
        return toQFont(std::nullopt);
    case Qt::TextAlignmentRole:
        return int(Qt::AlignCenter);
    default:
        return {};
    }
}

QVariant FontPickerRows::colorData(const Color& color, int role) const {
    switch (role) {
    case Qt::DisplayRole:
        return twoFullBlocks;
    case Qt::AccessibleTextRole:
        return describeColor(color);
    case Qt::FontRole:
        return toQFont(std::nullopt);
    case Qt::TextAlignmentRole:
        return int(Qt::AlignCenter);
    case Qt::ForegroundRole:
        return toQColor(color);
    case Qt::BackgroundRole:
        return solid_ ? QVariant(toQColor(color)) : QVariant();
    default:
        return {};
    }
}

} // namespace pomwick
