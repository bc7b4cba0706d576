#include "FrameLabel.h"

#include <QCoreApplication>
#include <QLabel>

FrameLabel::~FrameLabel()
{
    delete m_label;
}

QLabel* FrameLabel::widget() const { return m_label; }

void FrameLabel::setWidget(QLabel* label)
{
    if (m_label && m_label != label)
        delete m_label;
    m_label = label;
    if (label) {
        label->setObjectName(QStringLiteral("Label"));
        m_source = label->text();
    }
}

QString FrameLabel::text() const
{
    return m_label ? m_label->text() : QString();
}

void FrameLabel::setText(const QString& text)
{
    if (!m_label)
        return;
    m_source = text;
    m_label->setText(text);
}

// The source text shown is translated; anything else shown (a translation
// from before, a text set on the label itself) gives way to the source
// text. So a second call in the same language shows the source text again.
void FrameLabel::retranslate(const char* context)
{
    if (!m_label)
        return;
    if (m_label->text() == m_source)
        m_label->setText(QCoreApplication::translate(context, m_source.toUtf8().constData()));
    else
        m_label->setText(m_source);
}
