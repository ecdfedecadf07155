#include "app/RunOptionsSheet.h"

#include "app/RunWords.h"
#include "ui/CoreWords.h"
#include "ui/QuietComboBox.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace orvana
{

RunOptionsSheet::RunOptionsSheet(const RunSettings &settings,
                                 std::function<void(const RunSettings &)> accepted, QWidget *parent)
    : QDialog(parent), m_conflict(new QLabel(this)), m_accept(nullptr)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(tr("Options for this run"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("The next run does this as well:"), this));
    for (const auto &setting : AllRunSettings) {
        auto *box = new QCheckBox(RunWords::sentenceOf(setting), this);
        box->setChecked(setting.isOn(settings));
        layout->addWidget(box);
        m_boxes.push_back(box);
    }
    auto *grid = new QGridLayout;
    layout->addLayout(grid);
    for (const auto &setting : AllListedRunSettings)
        addList(setting, settings, grid);
    m_conflict->hide();
    layout->addWidget(m_conflict);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_accept = buttons->button(QDialogButtonBox::Ok);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::accepted, this, [this, accepted = std::move(accepted)] { accepted(chosen()); });
}

void RunOptionsSheet::addList(const ListedRunSetting &setting, const RunSettings &settings, QGridLayout *grid)
{
    auto *list = new QuietComboBox(this);
    for (const auto &value : setting.values())
        list->addItem(RunWords::valueOf(setting, value), QString::fromStdString(value));
    list->insertItem(0, RunWords::valueOf(setting, {}), QString());
    list->setCurrentIndex(list->findData(QString::fromStdString(setting.get(settings))));
    auto *label = new QLabel(RunWords::titleOf(setting), this);
    label->setBuddy(list);
    list->setAccessibleName(RunWords::titleOf(setting).remove(QChar(u'&')));
    const int row = grid->rowCount();
    grid->addWidget(label, row, 0);
    grid->addWidget(list, row, 1);
    m_lists.push_back(list);
    connect(list, &QComboBox::currentIndexChanged, this, &RunOptionsSheet::showConflict);
}

void RunOptionsSheet::showConflict()
{
    const auto conflict = conflictIn(chosen());
    m_conflict->setVisible(conflict.has_value());
    m_conflict->setText(conflict ? coreWords(*conflict) : QString());
    m_accept->setEnabled(!conflict);
}

RunSettings RunOptionsSheet::chosen() const
{
    RunSettings settings;
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
        AllRunSettings[i].of(settings) = m_boxes[i]->isChecked();
    for (std::size_t i = 0; i < m_lists.size(); ++i)
        AllListedRunSettings[i].set(settings, m_lists[i]->currentData().toString().toStdString());
    return settings;
}

} // namespace orvana
