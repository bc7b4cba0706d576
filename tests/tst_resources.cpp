#include "QRVWidgetBaseInterim.h"

#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <QtTest>

// Every picture the widgets name must be in the library and draw something.
class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyPictureRendersSomething_data();
    void everyPictureRendersSomething();
    void resourceListIsComplete();
};

namespace {

const QStringList& pictures()
{
    static const QStringList list{
        ":/images/90px75oGlow.png", ":/images/ScriptEditor/document.png", ":/images/backspace.png",
        ":/images/bksp.png", ":/images/bksp_max.png", ":/images/bksp_pressed.png", ":/images/dash.png",
        ":/images/documentButton.png", ":/images/downArrow.png", ":/images/downArrowPressed.png",
        ":/images/down_triangle.svg", ":/images/edit.svg", ":/images/error_container_close.png",
        ":/images/error_radio.png", ":/images/error_radio_selected.png", ":/images/error_text.png",
        ":/images/file.svg", ":/images/greenCircle.png", ":/images/larrow_off.png", ":/images/larrow_on.png",
        ":/images/left_triangle.svg", ":/images/lock_generic.png", ":/images/lock_num_un.png",
        ":/images/meterbarblue.svg", ":/images/meterbarblue_horizontal.svg", ":/images/meterbargreen.svg",
        ":/images/meterbargreen_horizontal.svg", ":/images/meterbargrey.svg",
        ":/images/meterbargrey_horizontal.svg", ":/images/meterbarred.svg", ":/images/meterbarred_horizontal.svg",
        ":/images/meterbaryellow.svg", ":/images/meterbaryellow_horizontal.svg", ":/images/rarrow_off.png",
        ":/images/rarrow_on.png", ":/images/right_triangle.svg", ":/images/rotateEntry.png",
        ":/images/rotateEntryPressed.png", ":/images/search.svg", ":/images/svg/BackArrow.svg",
        ":/images/svg/backDelete.svg", ":/images/svg/forwardArrow.svg", ":/images/svg/handMove.svg",
        ":/images/svg/homeButton.svg", ":/images/svg/lockPlot.svg", ":/images/svg/magnify.svg",
        ":/images/svg/magnifyIn.svg", ":/images/svg/magnifyOut.svg", ":/images/svg/refreshButton.svg",
        ":/images/svg/reload.svg", ":/images/svg/saveTrace.svg", ":/images/svg/wait1.svg",
        ":/images/svg/wait2.svg", ":/images/svg/wait3.svg", ":/images/upArrow.png",
        ":/images/upArrowPressed.png", ":/images/up_triangle.svg", ":/images/warning.svg"};
    return list;
}

QImage render(const QString& path)
{
    if (path.endsWith(QLatin1String(".svg"))) {
        QSvgRenderer svg(path);
        if (!svg.isValid())
            return QImage();
        QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        svg.render(&painter);
        return image;
    }
    return QImageReader(path).read();
}

int paintedPixels(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 0;
    return count;
}

} // namespace

void TestResources::initTestCase()
{
    // Use the library as a host does: loading it registers its pictures.
    QRVWidgetBaseInterim frame;
    QCOMPARE(frame.getAttributeName(), QStringLiteral("AttributeName"));
}

void TestResources::everyPictureRendersSomething_data()
{
    QTest::addColumn<QString>("path");
    for (const QString& path : pictures())
        QTest::newRow(qPrintable(path)) << path;
    // The frame's lock picture comes with the platform, and a doubled slash
    // still reaches a held file.
    QTest::newRow(":/images/lock.png") << QStringLiteral(":/images/lock.png");
    QTest::newRow("doubled slash") << QStringLiteral(":/images//svg/wait2.svg");
}

void TestResources::everyPictureRendersSomething()
{
    QFETCH(QString, path);
    QVERIFY2(QFile::exists(path), qPrintable(path));
    const QImage image = render(path);
    QVERIFY2(!image.isNull(), qPrintable(path));
    QVERIFY2(paintedPixels(image) > 0, qPrintable(path));
}

void TestResources::resourceListIsComplete()
{
    QCOMPARE(pictures().size(), 58);
}

QTEST_MAIN(TestResources)
#include "tst_resources.moc"
