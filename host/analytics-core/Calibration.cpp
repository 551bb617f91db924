#include <analytics/Calibration.h>

#include <algorithm>
#include <iterator>

namespace analytics {
namespace {

void Copy(const types::Point (&from)[2], types::Point (&to)[2]) {
  std::copy(std::begin(from), std::end(from), std::begin(to));
}

}  // namespace

Calibration::Calibration() = default;

Calibration::~Calibration() = default;

const types::Point (&Calibration::NearLeftSize() const)[2] { return m_nearLeftSize; }

const types::Point (&Calibration::NearWidth() const)[2] { return m_nearWidth; }

const types::Point (&Calibration::FarWidth() const)[2] { return m_farWidth; }

int Calibration::PhysicalHeight() const { return m_physicalHeight; }

void Calibration::SetNearLeftSize(const types::Point (&corners)[2]) {
  Copy(corners, m_nearLeftSize);
}

void Calibration::SetNearWidth(const types::Point (&line)[2]) { Copy(line, m_nearWidth); }

void Calibration::SetFarWidth(const types::Point (&line)[2]) { Copy(line, m_farWidth); }

void Calibration::SetPhysicalHeight(int height) { m_physicalHeight = height; }

}  // namespace analytics
