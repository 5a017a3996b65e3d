// The conversions of numbers: rounding, overflow, division, text.
#include "core/Errors.h"
#include "core/Numbers.h"

#include <QTest>

#include <cmath>
#include <limits>

class tst_numbers : public QObject {
    Q_OBJECT

private slots:
    void aNumberIsRoundedToTheNearestAndATieToTheEvenOne_data();
    void aNumberIsRoundedToTheNearestAndATieToTheEvenOne();
    void aNumberOutsideItsTypeThrows_data();
    void aNumberOutsideItsTypeThrows();
    void theLastNumbersOfATypeStillFit();
    void aRemainderHasTheSignOfTheDividend();
    void aRemainderByZeroThrows();
    void theSmallestNumberByMinusOneLeavesNothing();
    void aTextIsReadAsANumber_data();
    void aTextIsReadAsANumber();
    void aTextThatIsNoNumberThrows_data();
    void aTextThatIsNoNumberThrows();
    void aTextIsReadAsABoolean_data();
    void aTextIsReadAsABoolean();
    void aTextThatIsNoBooleanThrows();
    void aBooleanIsWrittenAsAWord();
    void aNumberIsWrittenWithAtLeastTwoDigits_data();
    void aNumberIsWrittenWithAtLeastTwoDigits();
};

void tst_numbers::aNumberIsRoundedToTheNearestAndATieToTheEvenOne_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");
    QTest::addRow("two and a half goes down") << 2.5 << 2;
    QTest::addRow("three and a half goes up") << 3.5 << 4;
    QTest::addRow("a half goes to nothing") << 0.5 << 0;
    QTest::addRow("minus a half goes to nothing") << -0.5 << 0;
    QTest::addRow("minus one and a half goes to minus two") << -1.5 << -2;
    QTest::addRow("minus two and a half goes to minus two") << -2.5 << -2;
    QTest::addRow("a little above a tie goes up") << 2.5000001 << 3;
    QTest::addRow("a little below a tie goes down") << 3.4999999 << 3;
    QTest::addRow("a whole number stays") << 441.0 << 441;
}

void tst_numbers::aNumberIsRoundedToTheNearestAndATieToTheEvenOne()
{
    QFETCH(double, value);
    QFETCH(int, expected);
    QCOMPARE(toLong(value), expected);
    QCOMPARE(int{toInteger(value)}, expected);
}

void tst_numbers::aNumberOutsideItsTypeThrows_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("fitsLong");
    QTest::addRow("one above 16 bits") << 32768.0 << true;
    QTest::addRow("one below 16 bits") << -32769.0 << true;
    QTest::addRow("a tie that is rounded above 16 bits") << 32767.5 << true;
    QTest::addRow("one above 32 bits") << 2147483648.0 << false;
    QTest::addRow("one below 32 bits") << -2147483649.0 << false;
    QTest::addRow("a tie that is rounded above 32 bits") << 2147483647.5 << false;
    QTest::addRow("infinity") << std::numeric_limits<double>::infinity() << false;
    QTest::addRow("what is no number") << std::nan("") << false;
}

void tst_numbers::aNumberOutsideItsTypeThrows()
{
    QFETCH(double, value);
    QFETCH(bool, fitsLong);
    QVERIFY_EXCEPTION_THROWN(toInteger(value), ConversionError);
    if (fitsLong)
        QCOMPARE(double{static_cast<double>(toLong(value))}, std::nearbyint(value));
    else
        QVERIFY_EXCEPTION_THROWN(toLong(value), ConversionError);
}

void tst_numbers::theLastNumbersOfATypeStillFit()
{
    QCOMPARE(toLong(2147483647.4), 2147483647);
    QCOMPARE(toLong(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    QCOMPARE(int{toInteger(32767.4)}, 32767);
    QCOMPARE(int{toInteger(-32768.5)}, -32768);
}

void tst_numbers::aRemainderHasTheSignOfTheDividend()
{
    QCOMPARE(checkedMod(7, 3), 1);
    QCOMPARE(checkedMod(-7, 3), -1);
    QCOMPARE(checkedMod(7, -3), 1);
}

void tst_numbers::aRemainderByZeroThrows()
{
    QVERIFY_EXCEPTION_THROWN(checkedMod(7, 0), ConversionError);
}

void tst_numbers::theSmallestNumberByMinusOneLeavesNothing()
{
    QCOMPARE(checkedMod(std::numeric_limits<std::int32_t>::min(), -1), 0);
}

void tst_numbers::aTextIsReadAsANumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");
    QTest::addRow("plain digits") << "128" << 128;
    QTest::addRow("blanks around it") << "  39 " << 39;
    QTest::addRow("a sign") << "-1" << -1;
    QTest::addRow("a fraction is rounded") << "2.5" << 2;
    QTest::addRow("an exponent") << "1e3" << 1000;
}

void tst_numbers::aTextIsReadAsANumber()
{
    QFETCH(QString, text);
    QFETCH(int, expected);
    QCOMPARE(parseLong(text), expected);
    QCOMPARE(int{parseInteger(text)}, expected);
}

void tst_numbers::aTextThatIsNoNumberThrows_data()
{
    QTest::addColumn<QString>("text");
    QTest::addRow("nothing") << "";
    QTest::addRow("blanks") << "  ";
    QTest::addRow("a word") << "thirty-nine";
    QTest::addRow("a number with a tail") << "39kbit";
    QTest::addRow("infinity") << "inf";
    QTest::addRow("a number that fits no type") << "99999999999";
}

void tst_numbers::aTextThatIsNoNumberThrows()
{
    QFETCH(QString, text);
    QVERIFY_EXCEPTION_THROWN(parseLong(text), ConversionError);
    QVERIFY_EXCEPTION_THROWN(parseInteger(text), ConversionError);
}

void tst_numbers::aTextIsReadAsABoolean_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");
    QTest::addRow("True") << "True" << true;
    QTest::addRow("the case doesn't count") << "tRUE" << true;
    QTest::addRow("False") << "False" << false;
    QTest::addRow("blanks around it") << " FALSE " << false;
    QTest::addRow("zero is false") << "0" << false;
    QTest::addRow("one is true") << "1" << true;
    QTest::addRow("minus one is true") << "-1" << true;
    QTest::addRow("a fraction is true, since nothing is rounded") << "0.2" << true;
}

void tst_numbers::aTextIsReadAsABoolean()
{
    QFETCH(QString, text);
    QFETCH(bool, expected);
    QCOMPARE(parseBoolean(text), expected);
}

void tst_numbers::aTextThatIsNoBooleanThrows()
{
    QVERIFY_EXCEPTION_THROWN(parseBoolean(QStringLiteral("yes")), ConversionError);
    QVERIFY_EXCEPTION_THROWN(parseBoolean(QString()), ConversionError);
}

void tst_numbers::aBooleanIsWrittenAsAWord()
{
    QCOMPARE(booleanText(true), "True");
    QCOMPARE(booleanText(false), "False");
}

void tst_numbers::aNumberIsWrittenWithAtLeastTwoDigits_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("expected");
    QTest::addRow("nothing is two zeros") << 0 << "00";
    QTest::addRow("one digit gets a zero") << 7 << "07";
    QTest::addRow("two digits stay") << 59 << "59";
    QTest::addRow("three digits stay") << 100 << "100";
    QTest::addRow("the sign stands before the zero") << -5 << "-05";
    QTest::addRow("the smallest number has its digits") << std::numeric_limits<int>::min() << "-2147483648";
}

void tst_numbers::aNumberIsWrittenWithAtLeastTwoDigits()
{
    QFETCH(int, value);
    QFETCH(QString, expected);
    QCOMPARE(twoDigits(value), expected);
}

QTEST_GUILESS_MAIN(tst_numbers)
#include "tst_numbers.moc"
