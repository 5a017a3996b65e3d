// The tour: opens the sample sound in the real window, cuts, titles, tags and saves it, and takes pictures on
// the way. Every step checks what it did and throws where it failed.
#pragma once

#include "core/CutterSelect.h"
#include "support/DialogDriver.h"

class Tour {
public:
    Tour(CutterSelect& form, const QString& outFolder, const QString& sampleFolder);

    void run();

private:
    void openSample();
    void setCuts();
    void nameParts();
    void fillTags();
    void chooseFormat(int option);
    void saveAll(const QString& subfolder);
    void showFiles(const QString& subfolder, const QString& extension);
    void takePicture(const QString& name);
    void pressBarOfPart(int row);
    void check(bool isRight, const QString& what);

    CutterSelect& form_;
    DialogDriver dialogs_;
    QString out_;
    QString sample_;
    std::vector<std::int32_t> cuts_;
    int pictures_ = 0;
};
