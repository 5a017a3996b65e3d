// The save dialog as a user meets it: the name that is in its field is the file that is written.
#include "core/toolkit/FileDialog.h"
#include "support/DialogDriver.h"
#include "support/Mouse.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

class win_file_dialog : public QObject {
    Q_OBJECT

private slots:
    void theNameProposedIsTheNameSaved_data() { names(); }
    void theNameProposedIsTheNameSaved();
    void aNameTypedIsTheNameSaved_data() { names(); }
    void aNameTypedIsTheNameSaved();
    void aFileWithPartOfTheNameIsNotTaken();
    void aFolderWithAQuoteInItsNameIsEntered();

private:
    static void names();
    /// Saves in `folder`: `proposed` stands in the field, `typed` is typed over it unless it is empty.
    std::optional<QString> save(const QDir& folder, const QString& proposed, const QString& typed = {});
};

void win_file_dialog::names()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"song-Part 1.mp3", "Say \"hi\"", "7\" mix", "7\"", "\"Live\"",
                             "a \"b\" c \"d\" e", "\"", "100% (live) #1; *?", "Live.MP3"})
        QTest::addRow("%s", name) << QString::fromUtf8(name);
}

std::optional<QString> win_file_dialog::save(const QDir& folder, const QString& proposed,
                                             const QString& typed)
{
    DialogDriver driver;
    driver.expect([&](QDialog& dialog) {
        static_cast<QFileDialog&>(dialog).setDirectory(folder);
        auto& field = *dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        field.setText(proposed);
        if (!typed.isEmpty()) {
            activate(dialog);    // the field alone decides while it has the focus
            field.setFocus();
            field.selectAll();
            QTest::keyClicks(&field, typed);
        }
        QMetaObject::invokeMethod(
            &dialog,
            [&dialog] {
                const auto buttons = dialog.findChildren<QPushButton*>();
                const auto isDefault = [](const QPushButton* button) { return button->isDefault(); };
                QTest::mouseClick(*std::find_if(buttons.begin(), buttons.end(), isDefault), Qt::LeftButton);
                if (dialog.isVisible()) dialog.reject();
            },
            Qt::QueuedConnection);
        return true;
    });
    const FileFilter filter{QStringLiteral("Sound (*.mp3)"), {QStringLiteral("*.mp3")}};
    return askForSave(QStringLiteral("Save"), filter, proposed);
}

void win_file_dialog::theNameProposedIsTheNameSaved()
{
    QFETCH(QString, name);
    QTemporaryDir folder;
    QCOMPARE(save(QDir(folder.path()), name).value_or(QString()), folder.filePath(name));
}

void win_file_dialog::aNameTypedIsTheNameSaved()
{
    QFETCH(QString, name);
    QTemporaryDir folder;
    QCOMPARE(save(QDir(folder.path()), QStringLiteral("other.mp3"), name).value_or(QString()),
             folder.filePath(name));
}

void win_file_dialog::aFileWithPartOfTheNameIsNotTaken()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("hi")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(save(QDir(folder.path()), QStringLiteral("x"), QStringLiteral("Say \"hi\"")).value_or(QString()),
             folder.filePath(QStringLiteral("Say \"hi\"")));
}

void win_file_dialog::aFolderWithAQuoteInItsNameIsEntered()
{
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("7\"")));
    QCOMPARE(save(QDir(folder.path()), QStringLiteral("7\"")), std::nullopt);
}

QTEST_MAIN(win_file_dialog)
#include "win_file_dialog.moc"
