// The last wall: an error that nobody trapped is shown, and then the process ends.
#include "core/toolkit/Wall.h"
#include "support/DialogDriver.h"

#include <QMessageBox>
#include <QTest>

#include <stdexcept>

class win_wall : public QObject {
    Q_OBJECT

private slots:
    void theFirstErrorIsShownToTheEndWhateverFailsBehindIt();
};

void win_wall::theFirstErrorIsShownToTheEndWhateverFailsBehindIt()
{
    QList<int> ended;
    endProcess = [&](int status) { ended << status; };
    DialogDriver driver;
    QStringList shown;
    driver.expect([&](QDialog& dialog) {
        guarded([] { throw std::runtime_error("the next array can't be read"); })();
        shown << static_cast<QMessageBox&>(dialog).text();
        QMetaObject::invokeMethod(&dialog, "accept", Qt::QueuedConnection);
        return ended.isEmpty();
    });
    guarded([] { throw std::runtime_error("the disk is gone"); })();
    QCOMPARE(shown, QStringList{"the disk is gone"});
    QCOMPARE(ended, QList<int>{1});
}

QTEST_MAIN(win_wall)
#include "win_wall.moc"
