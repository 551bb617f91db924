#include "bench/Samples.h"

#include <algorithm>
#include <cctype>
#include <iterator>

namespace bench {
namespace {

const char kProfileStart[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<tt:analytics-profile xmlns:tt="http://www.onvif.org/ver10/schema"
                      xmlns:ka="urn:kestal-com:schema:onvif:analytics:1">
  <tt:engines>
    <tt:engine Name="Tracker" Type="ka:ObjectTracker">
      <tt:Parameters>
        <tt:SimpleItem Name="Sensitivity" Value="60"/>
        <tt:SimpleItem Name="FrameRate" Value="12"/>
        <tt:ElementItem Name="Calibration">
          <ka:Calibration>
            <ka:ObjectAtNearLeft left="20" top="140" right="52" bottom="228"/>
            <ka:NearWidth><tt:Point x="12" y="230"/><tt:Point x="301" y="228"/></ka:NearWidth>
            <ka:FarWidth><tt:Point x="88" y="64"/><tt:Point x="217" y="66"/></ka:FarWidth>
            <ka:PhysicalHeight>175</ka:PhysicalHeight>
          </ka:Calibration>
        </tt:ElementItem>
      </tt:Parameters>
    </tt:engine>
  </tt:engines>
  <tt:rules>
)";

const char kProfileEnd[] = R"(  </tt:rules>
</tt:analytics-profile>
)";

const char kSettings[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<analytics>
  <maxSessions>4</maxSessions>
  <maxResource>80000</maxResource>
  <pluginRepository>/opt/kestal/analytics/plugins</pluginRepository>
  <videoInputFile>/opt/kestal/analytics/input.yuv</videoInputFile>
  <quadOutputFile>/opt/kestal/analytics/quad.yuv</quadOutputFile>
  <profile4DefaultModules>/opt/kestal/analytics/default-modules.xml</profile4DefaultModules>
  <userdataPipe>/var/run/primary.h264UserData.pipe</userdataPipe>
  <userdataPipe>/var/run/secondary.h264UserData.pipe</userdataPipe>
  <tags>
    <profile>analytics-profile</profile>
    <mediaSource>MediaSource</mediaSource>
    <engines>engines</engines>
    <engine>engine</engine>
    <rules>rules</rules>
    <rule>rule</rule>
    <eventSinks>eventSinks</eventSinks>
    <eventSink>eventSink</eventSink>
    <cameraPreset>cameraPreset</cameraPreset>
  </tags>
  <namespaces>
    <kestal><url>urn:kestal-com:schema:onvif:analytics:1</url><prefix>ka</prefix></kestal>
    <onvif><url>http://www.onvif.org/ver10/schema</url><prefix>tt</prefix></onvif>
  </namespaces>
  <variables>
    <variable name="root" value="/opt/kestal"/>
    <variable name="data" value="${root}/data"/>
    <variable name="camera" value="entrance"/>
    <variable name="suffix" value="xml"/>
    <variable name="host" value="camera-7"/>
    <variable name="stream" value="primary"/>
    <variable name="day" value="2024-02-29"/>
    <variable name="zone" value="lobby"/>
  </variables>
</analytics>
)";

std::string SimpleItem(const char* name, const std::string& value) {
  return std::string("        <tt:SimpleItem Name=\"") + name + "\" Value=\"" + value + "\"/>\n";
}

/// A polygon that differs from rule to rule.
std::string Polygon(int rule, int corners) {
  std::string text = "        <tt:ElementItem Name=\"Field\">\n          <tt:Polygon>\n";
  for (int corner = 0; corner < corners; ++corner) {
    text += "            <tt:Point x=\"" + std::to_string((37 * corner + rule) % 320) + "\" y=\"" +
            std::to_string((53 * corner + rule) % 240) + "\"/>\n";
  }
  return text + "          </tt:Polygon>\n        </tt:ElementItem>\n";
}

std::string Rule(int rule, const Profile& profile) {
  return "    <tt:rule Name=\"Rule " + std::to_string(rule) + "\" Type=\"" +
         TypeOf(rule % profile.types) + "\">\n      <tt:Parameters>\n" +
         SimpleItem("Active", rule % 3 == 0 ? "0" : "1") +
         SimpleItem("Label", "Zone " + std::to_string(rule)) +
         SimpleItem("Sensitivity", std::to_string(40 + rule % 50)) +
         SimpleItem("MinDuration", "1500") + SimpleItem("Direction", "any") +
         Polygon(rule, profile.corners) + "      </tt:Parameters>\n    </tt:rule>\n";
}

std::string s_directory;

}  // namespace

std::string Profile::Text() const {
  std::string text = kProfileStart;
  for (int rule = 1; rule <= rules; ++rule) text += Rule(rule, *this);
  return text + kProfileEnd;
}

std::string MiddleRuleQry(const Profile& profile) {
  return "//tt:rule[@Name='Rule " + std::to_string((profile.rules + 1) / 2) + "']";
}

std::string TypeOf(int number) { return "ka:Detector" + std::to_string(number); }

std::string SettingsText() { return kSettings; }

void SetDirectory(const std::string& directory) { s_directory = directory; }

std::string PathOf(const std::string& name) { return s_directory + "/" + name; }

std::string Compact(const std::string& text) {
  std::string compact;
  std::copy_if(text.begin(), text.end(), std::back_inserter(compact),
               [](unsigned char letter) { return !std::isspace(letter); });
  return compact;
}

}  // namespace bench
