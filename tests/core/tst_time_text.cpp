// Samples, seconds and positions, and the texts of times.
#include "core/Errors.h"
#include "core/TimeText.h"
#include "core/WaveScale.h"

#include <QTest>

class tst_time_text : public QObject {
    Q_OBJECT

private slots:
    void wholeSecondsAreRounded_data();
    void wholeSecondsAreRounded();
    void secondsAreExactUnlessWhole();
    void aRateOfNothingThrows();
    void millisecondsBecomeSamples_data();
    void millisecondsBecomeSamples();
    void theLogarithmIsToTheBaseOfTen();
    void aTimeOfAPartReadsMinutesSecondsHundredths_data();
    void aTimeOfAPartReadsMinutesSecondsHundredths();
    void aPartTimeBeyondThirtyTwoBitsOfHundredthsThrows();
    void everyHundredthOfTwoMinutesReadsLikeItsDigits();
    void aRulerTimeHasNoLeadingZeros_data();
    void aRulerTimeHasNoLeadingZeros();
    void aDurationKeepsTheDigitsOfItsFraction_data();
    void aDurationKeepsTheDigitsOfItsFraction();
    void aPlayingTimeHasThreeDecimals_data();
    void aPlayingTimeHasThreeDecimals();
    void aPositionReadsAsOnTheRuler();
    void theTextOfASampleIsTheTextOfItsSeconds();
    void aSampleStandsInProportionToTheWidth();
    void withoutAFileEverySampleStandsAtTheLeft();
    void aPlaceGivesItsSampleRounded();
    void aPlaceOnNoWidthThrows();
    void placeAndSampleAreInverseToEachOther_data();
    void placeAndSampleAreInverseToEachOther();
};

void tst_time_text::wholeSecondsAreRounded_data()
{
    QTest::addColumn<int>("samples");
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("expected");
    QTest::addRow("one and a half seconds is two") << 3 << 2 << 2;
    QTest::addRow("two and a half seconds is two") << 5 << 2 << 2;
    QTest::addRow("three and a half seconds is four") << 7 << 2 << 4;
    QTest::addRow("just above half a second overstates it") << 22051 << 44100 << 1;
    QTest::addRow("no samples are no seconds") << 0 << 44100 << 0;
}

void tst_time_text::wholeSecondsAreRounded()
{
    QFETCH(int, samples);
    QFETCH(int, rate);
    QTEST(SampleToSeconde(samples, rate), "expected");
}

void tst_time_text::secondsAreExactUnlessWhole()
{
    QCOMPARE(SampleToSecondeD(22050, 44100), 0.5);
    QCOMPARE(SampleToSecondeD(3, 2), 1.5);
}

void tst_time_text::aRateOfNothingThrows()
{
    QVERIFY_EXCEPTION_THROWN(SampleToSeconde(1, 0), ConversionError);
    QVERIFY_EXCEPTION_THROWN(SampleToSecondeD(1, 0), ConversionError);
}

void tst_time_text::millisecondsBecomeSamples_data()
{
    QTest::addColumn<int>("ms");
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("expected");
    QTest::addRow("44.1 samples are 44") << 1 << 44100 << 44;
    QTest::addRow("a tie goes to the even sample") << 500 << 5 << 2;
    QTest::addRow("a second is the rate") << 1000 << 48000 << 48000;
    QTest::addRow("hours don't overflow on the way") << 40000000 << 44100 << 1764000000;
}

void tst_time_text::millisecondsBecomeSamples()
{
    QFETCH(int, ms);
    QFETCH(int, rate);
    QTEST(MilliSecondsToSamplesS(ms, rate), "expected");
}

void tst_time_text::theLogarithmIsToTheBaseOfTen()
{
    QCOMPARE(Log10(1000), 3.0);
    QCOMPARE(Log10(1) + 1, 1.0);
}

void tst_time_text::aTimeOfAPartReadsMinutesSecondsHundredths_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("expected");
    QTest::addRow("nothing") << 0.0 << zeroTime;
    QTest::addRow("two minutes and a bit") << 125.25 << "02:05.25";
    QTest::addRow("the last hundredth before a hundred minutes") << 5999.99 << "99:59.99";
    QTest::addRow("a hundred minutes need three digits") << 6000.0 << "100:00.00";
    QTest::addRow("hundredths are rounded before they are split") << 59.996 << "01:00.00";
    QTest::addRow("half a hundredth goes to the even one") << 0.125 << "00:00.12";
}

void tst_time_text::aTimeOfAPartReadsMinutesSecondsHundredths()
{
    QFETCH(double, seconds);
    QTEST(FormatSeconds(seconds), "expected");
}

void tst_time_text::aPartTimeBeyondThirtyTwoBitsOfHundredthsThrows()
{
    QVERIFY_EXCEPTION_THROWN(FormatSeconds(21474837.0), ConversionError);
}

void tst_time_text::everyHundredthOfTwoMinutesReadsLikeItsDigits()
{
    for (int t = 0; t < 12000; ++t) {
        const QString naive = QString::asprintf("%02d:%02d.%02d", t / 6000, t / 100 % 60, t % 100);
        QCOMPARE(FormatSeconds(t / 100.0), naive);
    }
}

void tst_time_text::aRulerTimeHasNoLeadingZeros_data()
{
    QTest::addColumn<int>("ms");
    QTest::addColumn<QString>("expected");
    QTest::addRow("nothing is one zero") << 0 << "00:00.0";
    QTest::addRow("5 ms read 5") << 61005 << "01:01.5";
    QTest::addRow("50 ms read 50") << 50 << "00:00.50";
    QTest::addRow("500 ms read 50 too") << 500 << "00:00.50";
    QTest::addRow("123 ms are cut, not rounded") << 123 << "00:00.12";
    QTest::addRow("129 ms are cut, not rounded") << 129 << "00:00.12";
    QTest::addRow("the last millisecond stays in its second") << 59999 << "00:59.99";
    QTest::addRow("nine seconds get a zero") << 9000 << "00:09.0";
    QTest::addRow("ten seconds get none") << 10000 << "00:10.0";
    QTest::addRow("a hundred minutes") << 6000000 << "100:00.0";
}

void tst_time_text::aRulerTimeHasNoLeadingZeros()
{
    QFETCH(int, ms);
    QTEST(FormatRulerTime(ms), "expected");
}

void tst_time_text::aDurationKeepsTheDigitsOfItsFraction_data()
{
    QTest::addColumn<int>("ms");
    QTest::addColumn<QString>("expected");
    QTest::addRow("nothing") << 0 << "00:00.0";
    QTest::addRow("123 ms") << 123 << "00:00.12";
    QTest::addRow("a whole 9 has no zero") << 9 << "00:00.9";
    QTest::addRow("10 ms") << 10 << "00:00.10";
    // 1.009 s less 1 s is 8.9999999999999 ms in double precision: two characters of that.
    QTest::addRow("a fraction just below 9 is cut at its point") << 1009 << "00:01.8.";
    // 17.009 s less 17 s is 9.00000000000034 ms: above 9 and below 10, so all its digits stand behind a zero.
    QTest::addRow("a fraction just above 9 keeps all its digits") << 17009 << "00:17.09.00000000000034";
    QTest::addRow("100 ms") << 100 << "00:00.10";
}

void tst_time_text::aDurationKeepsTheDigitsOfItsFraction()
{
    QFETCH(int, ms);
    QTEST(durationText(ms), "expected");
}

void tst_time_text::aPlayingTimeHasThreeDecimals_data()
{
    QTest::addColumn<int>("ms");
    QTest::addColumn<QString>("expected");
    QTest::addRow("nothing") << 0 << "00:00.000";
    QTest::addRow("5 ms") << 61005 << "01:01.005";
    QTest::addRow("50 ms") << 50 << "00:00.050";
    QTest::addRow("999 ms") << 59999 << "00:59.999";
    QTest::addRow("a hundred minutes") << 6000123 << "100:00.123";
}

void tst_time_text::aPlayingTimeHasThreeDecimals()
{
    QFETCH(int, ms);
    QTEST(playingText(ms), "expected");
}

void tst_time_text::aPositionReadsAsOnTheRuler()
{
    QCOMPARE(positionText(45), "00:00.45");
    QCOMPARE(positionText(450), "00:00.45");
}

void tst_time_text::theTextOfASampleIsTheTextOfItsSeconds()
{
    QCOMPARE(sampleText(44100 * 61 + 22050, 44100), "01:01.50");
}

void tst_time_text::aSampleStandsInProportionToTheWidth()
{
    QCOMPARE(xOfSample(10420, 1000, 250), 2605.0);
    QCOMPARE(twipsOfSample(10420, 3, 1), 3473.33325f);
}

void tst_time_text::withoutAFileEverySampleStandsAtTheLeft()
{
    QCOMPARE(xOfSample(10420, 0, 250), 0.0);
}

void tst_time_text::aPlaceGivesItsSampleRounded()
{
    QCOMPARE(sampleOfX(10, 5, 1), 0);    // 0.5
    QCOMPARE(sampleOfX(10, 5, 3), 2);    // 1.5
    QCOMPARE(sampleOfX(10420, 441000, 10420), 441000);
}

void tst_time_text::aPlaceOnNoWidthThrows()
{
    QVERIFY_EXCEPTION_THROWN(sampleOfX(0, 441000, 10), ConversionError);
}

void tst_time_text::placeAndSampleAreInverseToEachOther_data()
{
    QTest::addColumn<Twips>("width");
    QTest::addRow("at 1:1") << Twips{10420};
    QTest::addRow("at the highest zoom") << Twips{10420 + 8 * 30000};
}

void tst_time_text::placeAndSampleAreInverseToEachOther()
{
    QFETCH(Twips, width);
    constexpr std::int32_t total = 441000;
    for (std::int32_t sample = 0; sample <= total; sample += 4999)
        QCOMPARE(sampleOfX(width, total, xOfSample(width, total, sample)), sample);
}

QTEST_GUILESS_MAIN(tst_time_text)
#include "tst_time_text.moc"
