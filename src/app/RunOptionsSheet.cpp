#include "app/RunOptionsSheet.h"

#include "app/RunWords.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

#include <utility>

namespace orvana
{

RunOptionsSheet::RunOptionsSheet(const RunSettings &settings,
                                 std::function<void(const RunSettings &)> accepted, QWidget *parent)
    : QDialog(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(tr("Options for this run"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("The next run does this as well:"), this));
    for (const auto &setting : AllRunSettings) {
        auto *box = new QCheckBox(RunWords::sentenceOf(setting), this);
        box->setChecked(settings.*setting.member);
        layout->addWidget(box);
        m_boxes.push_back(box);
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::accepted, this, [this, accepted = std::move(accepted)] { accepted(chosen()); });
}

RunSettings RunOptionsSheet::chosen() const
{
    RunSettings settings;
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
        settings.*AllRunSettings[i].member = m_boxes[i]->isChecked();
    return settings;
}

} // namespace orvana
