#include <algorithm>
#include <iterator>

#include <analytics/Calibration.h>
#include <analytics/ProfileDoc.h>

#include "profile/ProfileNames.h"

namespace analytics {
namespace {

using PointPair = types::Point[2];

/// Path from a rule or engine to the vendor's calibration element.
std::string CalibrationQry() {
  return ProfileDoc::ElementItemQry(true) + "[@Name=\"Calibration\"]/" + KestalName("Calibration");
}

std::string PieceQry(const std::string& calibrationQry, const char* tag) {
  return calibrationQry + "/" + KestalName(tag);
}

std::string LineQry(const std::string& calibrationQry, const char* tag) {
  return PieceQry(calibrationQry, tag) + "/" + OnvifName("Point");
}

void Copy(const PointPair& from, PointPair& to) {
  std::copy(std::begin(from), std::end(from), std::begin(to));
}

}  // namespace

bool ProfileDoc::GetCalibration(Calibration& calibration, DocumentNode* context) {
  const std::string calibrationQry = CalibrationQry();
  PointPair nearLeft;
  Copy(calibration.NearLeftSize(), nearLeft);
  PointPair nearWidth;
  Copy(calibration.NearWidth(), nearWidth);
  PointPair farWidth;
  Copy(calibration.FarWidth(), farWidth);

  // A piece that the profile lacks leaves its current value, which the setters then write back.
  GetRectangle(nearLeft, PieceQry(calibrationQry, "ObjectAtNearLeft"), context);
  GetLine(nearWidth, LineQry(calibrationQry, "NearWidth"), context);
  GetLine(farWidth, LineQry(calibrationQry, "FarWidth"), context);
  const int height = GetSingleValue(PieceQry(calibrationQry, "PhysicalHeight"),
                                    calibration.PhysicalHeight(), context);

  calibration.SetNearLeftSize(nearLeft);
  calibration.SetFarWidth(farWidth);
  calibration.SetNearWidth(nearWidth);
  calibration.SetPhysicalHeight(height);
  return true;
}

}  // namespace analytics
