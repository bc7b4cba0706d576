#ifndef CONTAINERSIZETRANSITION_H
#define CONTAINERSIZETRANSITION_H

#include <QSignalTransition>

class ContainerImpl;

/*!
  A step of a panel's size machine: it follows the panel's changeSize()
  only when the size word is its own ("Max", "Min" or "Thumb").
*/
class ContainerSizeTransition : public QSignalTransition
{
    Q_OBJECT

public:
    ContainerSizeTransition(ContainerImpl* container, const QString& sizeWord, QState* source, QState* target);

protected:
    bool eventTest(QEvent* event) override;

private:
    QString m_sizeWord;
};

#endif // CONTAINERSIZETRANSITION_H
