#include "GlobalImpl.h"
#include "QRVStatusBar.h"
#include "QRVUtil.h"
#include "QRVWidgetBaseInterim.h"
#include "TestSupport.h"
#include "WidgetBaseImpl.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTranslator>
#include <QtTest>

#include <algorithm>

// The bound frame and its unbound sibling must behave the same; every
// behaviour runs on both through these templates.
namespace {

template<class Frame>
struct Screen
{
    Screen()
    {
        window.setObjectName(QStringLiteral("SpectrumScreen"));
        window.resize(300, 200);
        frame = new Frame(&window);
        frame->setAttributeName(QStringLiteral("Frequency"));
        frame->setGeometry(20, 20, 160, 60);
    }
    QPushButton* overlay() const { return frame->template findChild<QPushButton*>(QStringLiteral("LockOverlay")); }

    QWidget window;
    Frame* frame = nullptr;
};

template<class Frame>
void checkLabelOwnership()
{
    Screen<Frame> s;
    QCOMPARE(s.frame->getLabel(), QString());
    s.frame->setLabel(QStringLiteral("ignored"));
    QCOMPARE(s.frame->getLabel(), QString());
    QCOMPARE(s.frame->property("LabelText").toString(), QString());

    QPointer<QLabel> first = new QLabel(QStringLiteral("Centre"), &s.window);
    s.frame->setLabelWidget(first);
    QCOMPARE(first->objectName(), QStringLiteral("Label"));
    s.frame->setLabelWidget(first);
    QVERIFY(first);
    s.frame->setLabel(QStringLiteral("Span"));
    QCOMPARE(first->text(), QStringLiteral("Span"));

    QPointer<QLabel> second = new QLabel(&s.window);
    s.frame->setLabelWidget(second);
    QVERIFY(!first);
    QCOMPARE(s.frame->getLabelWidget(), second.data());

    delete s.frame;
    QVERIFY(!second);
}

template<class Frame>
void checkTouch()
{
    Screen<Frame> s;
    QSignalSpy display(s.frame, SIGNAL(DisplayEntryMechanism()));
    QSignalSpy debug(s.frame, SIGNAL(suppressDebug(bool)));

    // Just beside the widget: nothing happens.
    QTest::mouseRelease(s.frame, Qt::LeftButton, Qt::ControlModifier, QPoint(s.frame->width(), 10));
    QCOMPARE(display.count(), 0);
    QCOMPARE(debug.count(), 0);
    QVERIFY(!s.frame->isLocked());
    QVERIFY(!s.frame->getSuppressDebug());

    // A Control touch flips the switch, says so, and still opens the mechanism.
    QTest::ignoreMessage(QtDebugMsg, "UserInterface - Debug is now OFF for: \"Frequency\" @ \"SpectrumScreen\"");
    QTest::mouseRelease(s.frame, Qt::LeftButton, Qt::ControlModifier, QPoint(10, 10));
    QVERIFY(s.frame->getSuppressDebug());
    QCOMPARE(debug.count(), 1);
    QCOMPARE(debug.first().first().toBool(), true);
    QCOMPARE(display.count(), 1);
    QVERIFY(s.frame->isLocked());
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), s.frame);

    s.frame->releaseLock();
    QTest::ignoreMessage(QtDebugMsg, "UserInterface - Debug is now ON for: \"Frequency\" @ \"SpectrumScreen\"");
    QTest::mouseRelease(s.frame, Qt::LeftButton, Qt::ControlModifier, QPoint(10, 10));
    QVERIFY(!s.frame->getSuppressDebug());
    s.frame->releaseLock();
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
}

template<class Frame>
void checkLockRefusedWhileAnotherHoldsIt()
{
    Screen<Frame> s;
    QWidget other;
    GlobalImpl::getInstance()->setEntryMechanism(&other);
    QSignalSpy display(s.frame, SIGNAL(DisplayEntryMechanism()));

    QTest::mouseRelease(s.frame, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QCOMPARE(display.count(), 0);
    QVERIFY(!s.frame->isLocked());
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), &other);

    // Giving back what it never held does not free the other holder.
    s.frame->releaseLock();
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), &other);
    GlobalImpl::getInstance()->releaseEntryMechanism(&other);
}

template<class Frame>
void checkDestroyedHolderGivesTheLockBack()
{
    Screen<Frame> s;
    QTest::mouseRelease(s.frame, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QVERIFY(s.frame->isLocked());
    delete s.frame;
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
}

template<class Frame>
void checkOverlayCoversAndSwallows(const QString& pngName)
{
    Screen<Frame> s;
    s.window.setStyleSheet(QStringLiteral("background-color: #2b3a4b;"));
    QPushButton* overlay = s.overlay();
    QVERIFY(overlay);
    QVERIFY(overlay->isHidden());
    QCOMPARE(overlay->focusPolicy(), Qt::NoFocus);
    QVERIFY(!overlay->styleSheet().contains(QStringLiteral("lock.png")));

    s.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&s.window));

    // Lock events come from a DDS thread: the signal is queued to the slot.
    QThread* dds = QThread::create([&s] { emit s.frame->SetLocked(true); });
    dds->start();
    dds->wait();
    delete dds;
    QTRY_VERIFY(overlay->isVisible());
    QVERIFY(overlay->styleSheet().contains(QStringLiteral("url(:/images/lock.png)")));

    s.frame->resize(220, 90);
    QCOMPARE(overlay->geometry(), s.frame->rect());
    QCOMPARE(s.frame->childAt(QPoint(110, 45)), overlay);

    const QImage image = TestSupport::savePng(&s.window, pngName);
    // The lock picture sits in the top right corner of the widget.
    const QPoint corner = s.frame->geometry().topRight() + QPoint(-8, 10);
    QVERIFY(image.pixelColor(corner) != image.pixelColor(s.frame->geometry().center()));

    s.frame->setWidgetLocked(false);
    QVERIFY(overlay->isHidden());
    QVERIFY(!overlay->styleSheet().contains(QStringLiteral("lock.png")));
}

template<class Frame>
void checkMessagesReachTheStatusBar()
{
    QPointer<QRVStatusBar> bar;
    {
        Screen<Frame> early; // built before any status bar: its complaint is lost
        bar = new QRVStatusBar;
        GlobalImpl::getInstance()->setStatusBar(bar);
        emit early.frame->exceptionMessage(QStringLiteral("lost"));
        QCOMPARE(bar->currentMessage(), QString());
    }
    Screen<Frame> s;
    emit s.frame->exceptionMessage(QStringLiteral("Engine not reachable"));
    QCOMPARE(bar->currentMessage(), QStringLiteral("Engine not reachable"));
    delete bar;
}

// A language in which the frame's label "Span" reads "Spanne".
class GermanLabels : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* sourceText, const char*, int) const override
    {
        return QLatin1String(context) == "WidgetBaseImpl" && QLatin1String(sourceText) == "Span"
                   ? QStringLiteral("Spanne")
                   : QString();
    }
};

} // namespace

class TestWidgetFrame : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void labelOwnership() { checkLabelOwnership<WidgetBaseImpl>(); checkLabelOwnership<QRVWidgetBaseInterim>(); }
    void touch() { checkTouch<WidgetBaseImpl>(); checkTouch<QRVWidgetBaseInterim>(); }
    void lockRefusedWhileAnotherHoldsIt();
    void destroyedHolderGivesTheLockBack();
    void overlayCoversAndSwallows();
    void messagesReachTheStatusBar();
    void propertiesAndDefaults();
    void sizeWords_data();
    void sizeWords();
    void labelWidthShowsTheTextWhole_data();
    void labelWidthShowsTheTextWhole();
    void labelFollowsTheLanguage_data();
    void labelFollowsTheLanguage();
};

void TestWidgetFrame::cleanup()
{
    qApp->setProperty("-size", QVariant());
    qApp->setProperty("-systype", QVariant());
    QCOMPARE(GlobalImpl::getInstance()->entryMechanism(), nullptr);
}

void TestWidgetFrame::lockRefusedWhileAnotherHoldsIt()
{
    checkLockRefusedWhileAnotherHoldsIt<WidgetBaseImpl>();
    checkLockRefusedWhileAnotherHoldsIt<QRVWidgetBaseInterim>();
}

void TestWidgetFrame::destroyedHolderGivesTheLockBack()
{
    checkDestroyedHolderGivesTheLockBack<WidgetBaseImpl>();
    checkDestroyedHolderGivesTheLockBack<QRVWidgetBaseInterim>();
}

void TestWidgetFrame::overlayCoversAndSwallows()
{
    checkOverlayCoversAndSwallows<WidgetBaseImpl>(QStringLiteral("frame_locked"));
    checkOverlayCoversAndSwallows<QRVWidgetBaseInterim>(QStringLiteral("interim_locked"));
}

void TestWidgetFrame::messagesReachTheStatusBar()
{
    checkMessagesReachTheStatusBar<WidgetBaseImpl>();
    checkMessagesReachTheStatusBar<QRVWidgetBaseInterim>();
}

void TestWidgetFrame::propertiesAndDefaults()
{
    QRVWidgetBaseInterim interim;
    WidgetBaseImpl bound;
    for (QWidget* frame : {static_cast<QWidget*>(&interim), static_cast<QWidget*>(&bound)}) {
        QCOMPARE(frame->property("AttributeName").toString(), QStringLiteral("AttributeName"));
        QCOMPARE(frame->property("UpdateDelay").toInt(), 100);
        QCOMPARE(frame->property("SuppressReceiveDebug").toBool(), false);
        QCOMPARE(frame->focusPolicy(), Qt::NoFocus);
        QVERIFY(frame->setProperty("UpdateDelay", 1500));
        QCOMPARE(frame->property("UpdateDelay").toInt(), 1500);
        const QMetaObject* meta = frame->metaObject();
        QVERIFY(meta->indexOfSlot("setWidgetLocked()") >= 0);
        QVERIFY(meta->indexOfSlot("setWidgetLocked(bool)") >= 0);
        QVERIFY(meta->indexOfMethod("setLabel(QString)") >= 0);
    }
}

void TestWidgetFrame::sizeWords_data()
{
    QTest::addColumn<QVariant>("screen");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("shown");
    QTest::newRow("no switch, Max") << QVariant() << "Max" << "Max";
    QTest::newRow("small portrait, Max") << QVariant("small_portrait") << "Max" << "Min";
    QTest::newRow("small portrait, Min") << QVariant("small_portrait") << "Min" << "Min";
    QTest::newRow("small portrait, Thumb") << QVariant("small_portrait") << "Thumb" << "Thumb";
    QTest::newRow("landscape, Max") << QVariant("landscape") << "Max" << "Max";
}

void TestWidgetFrame::sizeWords()
{
    QFETCH(QVariant, screen);
    QFETCH(QString, word);
    QFETCH(QString, shown);
    qApp->setProperty("-size", screen);
    QCOMPARE(QRVUtil::demotedSize(word), shown);

    QCOMPARE(QRVUtil::initialSize(), QStringLiteral("Min"));
    qApp->setProperty("-systype", QStringLiteral("handheld"));
    QCOMPARE(QRVUtil::initialSize(), QStringLiteral("Max"));
}

void TestWidgetFrame::labelWidthShowsTheTextWhole_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<int>("indent");
    QTest::addColumn<QString>("text");
    QTest::newRow("border and padding") << "border: 2px solid #fff; padding: 0px 8px; font-size: 20px;" << -1 << "MHz";
    QTest::newRow("margin, thick border, left padding")
        << "margin: 0px 0px 0px 14px; border: 4px solid #fff; padding: 0px 0px 0px 10px;" << -1 << "-80.0 dBm";
    QTest::newRow("told an indent") << "border: 2px solid #fff; font-size: 14px;" << 6 << "dBm";
    QTest::newRow("no frame") << "font-size: 32px;" << -1 << "GHz";
    QTest::newRow("two lines") << "border: 2px solid #fff;" << -1 << "-20 dBm\nupper limit";
}

void TestWidgetFrame::labelWidthShowsTheTextWhole()
{
    QFETCH(QString, sheet);
    QFETCH(int, indent);
    QFETCH(QString, text);
    QWidget panel;
    panel.setStyleSheet(QStringLiteral("QWidget { background: #1c2530; color: white; } QLabel { %1 }").arg(sheet));
    auto* label = new QLabel(text, &panel);
    label->setIndent(indent);
    panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    const int width = QRVUtil::labelWidthFor(label, text);
    // QLabel's documented rule: a frame moves a text in by half an "x" unless told an indent.
    auto textRoom = [label] {
        int effective = label->indent();
        if (effective < 0)
            effective = label->frameWidth() > 0 ? label->fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2 - label->margin() : 0;
        return label->contentsRect().width() - 2 * label->margin() - std::max(effective, 0);
    };
    const int needed = QRVUtil::calculateStringWidth(label->fontMetrics(), text);
    label->setGeometry(4, 4, width, label->sizeHint().height());
    panel.resize(width + 8, label->height() + 8);
    QCOMPARE(textRoom(), needed);
    QCOMPARE(QRVUtil::labelTextRect(label).width(), needed);
    TestSupport::savePng(&panel, QStringLiteral("label_width_%1").arg(QTest::currentDataTag()).replace(QLatin1Char(' '), QLatin1Char('_')).remove(QLatin1Char(',')));
    label->resize(width - 1, label->height());
    QVERIFY(textRoom() < needed);
}

void TestWidgetFrame::labelFollowsTheLanguage_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("shownBefore"); // empty: the source text
    QTest::addColumn<int>("retranslations");
    QTest::addColumn<QString>("shown");
    QTest::newRow("source shown: translated") << "Span" << "" << 1 << "Spanne";
    QTest::newRow("translation shown: back to the source") << "Span" << "" << 2 << "Span";
    QTest::newRow("three times: translated again") << "Span" << "" << 3 << "Spanne";
    QTest::newRow("another text shown: back to the source") << "Span" << "Width" << 1 << "Span";
    QTest::newRow("no translation: stays") << "Centre" << "" << 1 << "Centre";
}

// The shown text is compared with the source text: equal, it is translated;
// otherwise the source text comes back.
void TestWidgetFrame::labelFollowsTheLanguage()
{
    QFETCH(QString, source);
    QFETCH(QString, shownBefore);
    QFETCH(int, retranslations);
    GermanLabels german;
    QVERIFY(qApp->installTranslator(&german));
    WidgetBaseImpl frame;
    auto* label = new QLabel;
    frame.setLabelWidget(label);
    frame.setLabel(source);
    if (!shownBefore.isEmpty())
        label->setText(shownBefore);

    for (int i = 0; i < retranslations; ++i)
        frame.retranslate();

    QTEST(frame.getLabel(), "shown");
    qApp->removeTranslator(&german);
}

QTEST_MAIN(TestWidgetFrame)
#include "tst_widgetframe.moc"
