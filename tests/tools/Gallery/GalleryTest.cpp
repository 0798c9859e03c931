#include "Gallery/Gallery.h"

#include "Gallery/Pages.h"
#include "Views/Shared/InstrumentStyle.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QLocale>
#include <QPixmap>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace tolvar::gallery {

void PrintTo(const Page& page, std::ostream* stream) {
    *stream << page.name.toStdString();
}

namespace {

using namespace Qt::StringLiterals;

/// What compilers may make of the same arithmetic.
constexpr int tolerance = 3;

QString scale() {
    return QString::fromLocal8Bit(qgetenv("QT_SCALE_FACTOR"));
}

QImage drawn(const Page& page) {
    QLocale::setDefault(QLocale::c());
    QApplication::setStyle(new InstrumentStyle);
    SilentInterfaceSound silence;
    Studio studio({.isReduced = true}, silence);
    const std::unique_ptr<QWidget> sheet(page.make(studio.context()));
    sheet->resize(sheet->sizeHint());
    return sheet->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

int distance(QRgb first, QRgb second) {
    return std::max({std::abs(qRed(first) - qRed(second)), std::abs(qGreen(first) - qGreen(second)),
                     std::abs(qBlue(first) - qBlue(second))});
}

/// Marks in red what differs; null when nothing does.
QImage differences(const QImage& wanted, const QImage& got) {
    QImage marked = wanted.copy();
    bool isDifferent = false;
    for (int y = 0; y < wanted.height(); ++y)
        for (int x = 0; x < wanted.width(); ++x)
            if (distance(wanted.pixel(x, y), got.pixel(x, y)) > tolerance) {
                marked.setPixel(x, y, qRgb(255, 0, 0));
                isDifferent = true;
            }
    return isDifferent ? marked : QImage();
}

/// Keeps the picture as it is, and beside it three: as it was, as it is, and where they differ.
QString keep(const QString& name, const QImage& wanted, const QImage& got, const QImage& marked) {
    const QDir folder(QStringLiteral(DIFFERENCES));
    folder.mkpath(u"."_s);
    got.save(folder.filePath(name));
    QString file = folder.filePath(u"compared-"_s + name);
    QImage all(wanted.width() + got.width() + marked.width(),
               std::max(wanted.height(), got.height()), QImage::Format_RGB32);
    all.fill(Qt::white);
    int left = 0;
    for (const QImage& picture : {wanted, got, marked}) {
        for (int y = 0; y < picture.height(); ++y)
            std::copy_n(reinterpret_cast<const QRgb*>(picture.constScanLine(y)), picture.width(),
                        reinterpret_cast<QRgb*>(all.scanLine(y)) + left);
        left += picture.width();
    }
    all.save(file);
    return file;
}

class GalleryPage : public testing::TestWithParam<Page> {};

TEST_P(GalleryPage, LooksAsItDid) {
    const QString name = u"%1@%2x.png"_s.arg(GetParam().name, scale());
    const QImage got = drawn(GetParam());
    const QImage wanted =
        QImage(QDir(QStringLiteral(REFERENCES)).filePath(name)).convertToFormat(got.format());
    if (wanted.isNull()) {
        FAIL() << "no picture to compare with; drawn: " << keep(name, {}, got, {}).toStdString();
    }
    ASSERT_EQ(wanted.size(), got.size())
        << "was, is: " << keep(name, wanted, got, {}).toStdString();
    const QImage marked = differences(wanted, got);
    EXPECT_TRUE(marked.isNull()) << "was, is, differs: "
                                 << keep(name, wanted, got, marked).toStdString();
}

TEST_P(GalleryPage, LooksTheSameTwice) {
    EXPECT_EQ(drawn(GetParam()), drawn(GetParam()));
}

TEST(GalleryDifferences, AreSeenInASinglePixel) {
    QImage one(8, 8, QImage::Format_RGB32);
    one.fill(Qt::black);
    QImage other = one;
    other.setPixel(3, 4, qRgb(0, 9, 0));
    EXPECT_TRUE(differences(one, one).isNull());
    EXPECT_EQ(differences(one, other).pixel(3, 4), qRgb(255, 0, 0));
}

INSTANTIATE_TEST_SUITE_P(All, GalleryPage, testing::ValuesIn(pages()),
                         [](const auto& page) { return page.param.name.toStdString(); });

} // namespace
} // namespace tolvar::gallery
