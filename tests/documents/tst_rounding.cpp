// Decimal rounding with ties to even, and the arithmetic of one detail row built on it.
#include <cmath>
#include <limits>

#include <QTest>

#include "core/round_half_even.h"
#include "documents/row_arithmetic.h"

using ventarix::ComputeRow;
using ventarix::RoundHalfEven;
using ventarix::RowAmounts;
using ventarix::RowInput;

Q_DECLARE_METATYPE(RowInput)

class TstRounding : public QObject {
  Q_OBJECT

 private slots:
  void tiesGoToTheEvenNeighbour_data();
  void tiesGoToTheEvenNeighbour();
  void oddValuesPassThrough();
  void rowArithmetic_data();
  void rowArithmetic();
};

void TstRounding::tiesGoToTheEvenNeighbour_data() {
  QTest::addColumn<double>("value");
  QTest::addColumn<int>("decimals");
  QTest::addColumn<double>("expected");
  // Whole numbers.
  QTest::newRow("2.5 -> 2") << 2.5 << 0 << 2.0;
  QTest::newRow("3.5 -> 4") << 3.5 << 0 << 4.0;
  QTest::newRow("99.5 -> 100") << 99.5 << 0 << 100.0;
  QTest::newRow("-2.5 -> -2") << -2.5 << 0 << -2.0;
  QTest::newRow("-3.5 -> -4") << -3.5 << 0 << -4.0;
  QTest::newRow("2.51 -> 3") << 2.51 << 0 << 3.0;
  // Two places: percentages, cost, commission and profit.
  QTest::newRow("12.345 -> 12.34") << 12.345 << 2 << 12.34;
  QTest::newRow("2.675 reads as a tie -> 2.68") << 2.675 << 2 << 2.68;
  QTest::newRow("1.005 reads as a tie -> 1.00") << 1.005 << 2 << 1.0;
  QTest::newRow("0.125 -> 0.12") << 0.125 << 2 << 0.12;
  QTest::newRow("-0.125 -> -0.12") << -0.125 << 2 << -0.12;
  QTest::newRow("0.00500000000001 above the tie -> 0.01") << 0.00500000000001 << 2 << 0.01;
  QTest::newRow("0.00499999999999 below the tie -> 0") << 0.00499999999999 << 2 << 0.0;
  // Four places: price and amounts.
  QTest::newRow("0.00625 -> 0.0062") << 0.00625 << 4 << 0.0062;
  QTest::newRow("123456.78125 -> 123456.7812") << 123456.78125 << 4 << 123456.7812;
  QTest::newRow("carry 9.99995 -> 10") << 9.99995 << 4 << 10.0;
  QTest::newRow("binary noise 0.30000000000000004") << 0.1 + 0.2 << 4 << 0.3;
  QTest::newRow("binary noise 3.7036999999999995") << 3.7036999999999995 << 4 << 3.7037;
  // Eight places: quantities.
  QTest::newRow("2.123456785 -> 2.12345678") << 2.123456785 << 8 << 2.12345678;
  QTest::newRow("2.123456775 -> 2.12345678") << 2.123456775 << 8 << 2.12345678;
  QTest::newRow("5e-9 -> 0") << 5e-9 << 8 << 0.0;
  QTest::newRow("1.5e-8 -> 2e-8") << 1.5e-8 << 8 << 2e-8;
}

void TstRounding::tiesGoToTheEvenNeighbour() {
  QFETCH(double, value);
  QFETCH(int, decimals);
  QFETCH(double, expected);
  const double rounded = RoundHalfEven(value, decimals);
  // Exact: the result must be the double nearest the decimal figure, as parsing it would give.
  QVERIFY2(rounded == expected, qPrintable(QString::number(rounded, 'g', 17)));
}

void TstRounding::oddValuesPassThrough() {
  QCOMPARE(RoundHalfEven(0.1875, 4), 0.1875);
  QCOMPARE(RoundHalfEven(1e20, 2), 1e20);
  QCOMPARE(RoundHalfEven(-7.0, 4), -7.0);
  QVERIFY(std::isnan(RoundHalfEven(std::numeric_limits<double>::quiet_NaN(), 2)));
  QCOMPARE(RoundHalfEven(std::numeric_limits<double>::infinity(), 2),
           std::numeric_limits<double>::infinity());
  QCOMPARE(RoundHalfEven(std::numeric_limits<double>::denorm_min(), 8), 0.0);
  // A small negative figure becomes plain zero, never "-0" in a header.
  QVERIFY(!std::signbit(RoundHalfEven(-0.00001, 2)));
  QCOMPARE(RoundHalfEven(0.123, -1), 0.123);
}

void TstRounding::rowArithmetic_data() {
  QTest::addColumn<RowInput>("input");
  QTest::addColumn<bool>("withCost");
  // importe, descuento, subtotal, iva, total; costo, costototal, comision, utilidad
  QTest::addColumn<QList<double>>("expected");
  // The price is cut to 1.2346 first: three make 3.7038, not round(3.70368) = 3.7037.
  QTest::newRow("each step uses the rounded step before")
      << RowInput{3, 1.23456, 0, 0, 0, 0} << false
      << QList<double>{3.7038, 0, 3.7038, 0, 3.7038, 0, 0, 0, 0};
  QTest::newRow("four decimals reach the row")
      << RowInput{1.5, 0.125, 0, 0, 0, 0} << false
      << QList<double>{0.1875, 0, 0.1875, 0, 0.1875, 0, 0, 0, 0};
  QTest::newRow("tax tie at the fifth decimal")
      << RowInput{0.25, 0.25, 0, 10, 0, 0} << false
      << QList<double>{0.0625, 0, 0.0625, 0.0062, 0.0687, 0, 0, 0, 0};
  QTest::newRow("3 x 10.00, 12.5% off, 16% tax, commission tie goes even")
      << RowInput{3, 10, 12.5, 16, 6, 10} << true
      << QList<double>{30, 3.75, 26.25, 4.2, 30.45, 6, 18, 2.62, 5.63};
  QTest::newRow("cost 12.345 stored as 12.34")
      << RowInput{2, 20, 0, 0, 12.345, 0} << true
      << QList<double>{40, 0, 40, 0, 40, 12.34, 24.68, 0, 15.32};
  QTest::newRow("a return row is negative")
      << RowInput{-2, 10.005, 0, 16, 7, 0} << true
      << QList<double>{-20.01, 0, -20.01, -3.2016, -23.2116, 7, -14, 0, -6.01};
  QTest::newRow("no cost leaves the cost fields at zero")
      << RowInput{2, 5, 0, 0, 3, 10} << false << QList<double>{10, 0, 10, 0, 10, 0, 0, 0, 0};
}

void TstRounding::rowArithmetic() {
  QFETCH(RowInput, input);
  QFETCH(bool, withCost);
  QFETCH(QList<double>, expected);
  const RowAmounts r = ComputeRow(input, withCost);
  QCOMPARE((QList<double>{r.importe, r.descuento, r.subtotal, r.iva, r.total, r.costo,
                          r.costo_total, r.comision, r.utilidad}),
           expected);
}

QTEST_GUILESS_MAIN(TstRounding)
#include "tst_rounding.moc"
