#pragma once

#include "enclosures/BayLearning.h"
#include "ui_BaySetupSheet.h"

#include <QDialog>

#include <map>
#include <memory>

namespace orvana
{

class MainQueue;
class SetupWriter;

/// Asks the user to put a disk into one bay of an enclosure after the other, and writes the definition of
/// what it has seen. Nothing is written before "Done". It looks at the machine only while it is open, and
/// deletes itself when it is closed. Main thread only.
class BaySetupSheet : public QDialog, public Ui::BaySetupSheet
{
    Q_OBJECT

public:
    /// `setup`, `writer` and `queue` must outlive the sheet. It may be destroyed while the definition is
    /// being written; then nobody hears of the outcome.
    BaySetupSheet(enclosures::EnclosureSetup &setup, SetupWriter &writer, MainQueue &queue, QWidget *parent);

    /// The label that says what has come of a bay, 'A' to 'D'.
    QLabel *textOf(char bay) const;

    /// Closes the sheet. No callback reaches it after that.
    void done(int result) override;

    /// Closes the sheet without writing anything. Does nothing while the definition is being written.
    void reject() override;

protected:
    bool event(QEvent *event) override;

private:
    void lookLater();
    void look();
    void skip();
    void write();
    void written(const tl::expected<void, std::string> &outcome);
    void take(const enclosures::BayLearning::Answer &answer);
    void showState();
    void showBays();
    QString request() const;
    QString reasonAgainstDone() const;
    tl::expected<enclosures::Definition, std::string> definition() const;

    enclosures::EnclosureSetup &m_setup;
    SetupWriter &m_writer;
    MainQueue &m_queue;
    enclosures::BayLearning m_learning;
    enclosures::DefinitionSet m_existing;
    std::map<char, QString> m_answers; ///< what has come of each bay that was asked for
    QString m_problem;
    bool m_isWriting = false;
    std::shared_ptr<bool> m_isOpen = std::make_shared<bool>(true);
};

} // namespace orvana
