#include <algorithm>
#include <iterator>

#include <analytics/Calibration.h>
#include <analytics/ProfileDoc.h>

#include "profile/ProfileQueries.h"

namespace analytics {
namespace {

using PointPair = types::Point[2];

/// Path from a rule or engine to the vendor's calibration element.
std::string CalibrationQry() {
  QueryText query;
  query.Add(ProfileDoc::ElementItemQry(true)).Add("[@Name=\"Calibration\"]/");
  AddKestalName(query, "Calibration");
  return query.c_str();
}

std::string PieceQry(const std::string& calibrationQry, const char* tag) {
  QueryText query;
  query.Add(calibrationQry).Add("/");
  AddKestalName(query, tag);
  return query.c_str();
}

std::string LineQry(const std::string& calibrationQry, const char* tag) {
  QueryText query;
  query.Add(PieceQry(calibrationQry, tag)).Add("/");
  AddOnvifName(query, "Point");
  return query.c_str();
}

/// Paths to the pieces of a calibration, made in this order.
struct CalibrationQueries {
  const std::string calibration = CalibrationQry();
  const std::string nearLeft = PieceQry(calibration, "ObjectAtNearLeft");
  const std::string nearWidth = LineQry(calibration, "NearWidth");
  const std::string farWidth = LineQry(calibration, "FarWidth");
  const std::string height = PieceQry(calibration, "PhysicalHeight");
};

void Copy(const PointPair& from, PointPair& to) {
  std::copy(std::begin(from), std::end(from), std::begin(to));
}

}  // namespace

bool ProfileDoc::GetCalibration(Calibration& calibration, DocumentNode* context) {
  const CalibrationQueries queries;
  PointPair nearLeft;
  Copy(calibration.NearLeftSize(), nearLeft);
  PointPair nearWidth;
  Copy(calibration.NearWidth(), nearWidth);
  PointPair farWidth;
  Copy(calibration.FarWidth(), farWidth);

  // A piece that the profile lacks leaves its current value, which the setters then write back.
  GetRectangle(nearLeft, queries.nearLeft, context);
  GetLine(nearWidth, queries.nearWidth, context);
  GetLine(farWidth, queries.farWidth, context);
  const int height = GetSingleValue(queries.height, calibration.PhysicalHeight(), context);

  calibration.SetNearLeftSize(nearLeft);
  calibration.SetFarWidth(farWidth);
  calibration.SetNearWidth(nearWidth);
  calibration.SetPhysicalHeight(height);
  return true;
}

}  // namespace analytics
