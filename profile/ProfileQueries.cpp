#include "profile/ProfileQueries.h"

#include <analytics/Settings.h>

namespace analytics {
namespace {

void AddName(QueryText& query, const std::string& prefix, const char* localName) {
  query.Add(prefix).Add(":").Add(localName);
}

}  // namespace

void AddOnvifName(QueryText& query, const char* localName) {
  AddName(query, Settings::OnvifPrefix(), localName);
}

void AddKestalName(QueryText& query, const char* localName) {
  AddName(query, Settings::KestalPrefix(), localName);
}

std::string ElementQry(const std::string& prefix, const std::string& tag, const std::string& type) {
  QueryText query;
  AddName(query.Add("//"), prefix, tag.c_str());
  if (!type.empty()) query.Add("[@Type=\"").Add(type).Add("\"]");
  return query.c_str();
}

std::string RuleQry(const std::string& type) {
  const std::string prefix = Settings::OnvifPrefix();
  return ElementQry(prefix, Settings::RuleTag(), type);
}

QueryText ItemsQry(const char* tag, bool throughParameters) {
  QueryText query;
  if (throughParameters) {
    AddOnvifName(query, "Parameters");
    query.Add("/");
  }
  AddOnvifName(query, tag);
  return query;
}

}  // namespace analytics
