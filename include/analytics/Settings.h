// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <analytics/Export.h>

namespace analytics {

/// The analytics runtime's own settings, one set for the process; an object holds nothing.
///
/// Path: the first word to which a POSIX shell expands the environment variable `ANALYTICS_INI`:
/// tilde, variables, commands, arithmetic, file patterns and quotes. If that expansion fails it is
/// the variable's raw text; if the variable is not set, or the word is missing or empty, it is
/// "/usr/local/kestal/analytics/conf/analytics.ini".
///
/// Trust: each expansion runs the commands in the variable and waits for them, even if it then
/// fails, so whoever sets the environment must be trusted. So must the path and the file: libxml2
/// opens more than files and multiplies entities (see `Document`), and the settings become part of
/// profile queries (see `ProfileDoc`).
///
/// Loading: the first operation (the next one, if it throws) loads that file, well-formed or not;
/// later only `LoadSettings` loads. Until a file has been parsed every setting has its built-in
/// value. A parsed file replaces all: a number that it lacks or leaves blank takes its built-in
/// value, a text that it lacks is empty. Of an element that occurs more than once the first counts,
/// but for pipes. Elements in a namespace are not found. Texts are UTF-8, numbers as in `Document`.
///
/// Ownership: all results are copies. The settings end when the library is unloaded or at exit.
///
/// Errors: a file that is missing or not well-formed changes no stored setting and is reported
/// through `analytics::Trace`. What is absent gives an empty text or list or the caller's default.
/// Besides what `Document` lets out, `std::length_error` and what `Trace` throws get out; a load
/// that an exception ends can leave settings of two files.
///
/// Threads: no lock is taken. The first use, which a profile can make, and every `LoadSettings`
/// happen while no other thread uses settings or profiles or changes the environment. Stored
/// settings are then for all threads, free queries and substitution for one at a time.
class ANALYTICS_API Settings {
 public:
  Settings();
  ~Settings();

  /// Loads or reloads the settings. As the first call of all it loads twice: first the file of
  /// `ANALYTICS_INI`, then the one asked for.
  ///
  /// @param path  not expanded; empty means the file that `ANALYTICS_INI` now stands for
  /// @return whether the file was parsed. If not, stored settings keep their values, while the free
  ///         queries and substitution find nothing.
  static bool LoadSettings(const std::string& path);

  /// Amount of analytics resource available, in units, an `int`; `//maxResource`, built-in 100000.
  static std::int64_t MaxResource();

  /// Paths of the named pipes that carry H.264 user data: all texts of `//userdataPipe` but empty
  /// ones, else "/var/run/primary.h264UserData.pipe" alone. None until a file has been parsed.
  static std::vector<std::string> UserDataPipes();

  /// Directory of the analytics plug-ins; `//pluginRepository`, built-in
  /// "/usr/local/kestal/analytics/plugins/". Ends in "/" unless it is empty.
  static std::string PluginRepository();

  /// Path of the quad (four-view) output file; `//quadOutputFile`, built-in
  /// "/usr/local/kestal/analytics/quad-output.yuv".
  static std::string QuadOutputFile();

  /// Tag of a profile; `//tags/profile`, built-in "analytics-profile".
  static std::string ProfileTag();
  /// Tag of a media source; `//tags/mediaSource`, built-in "MediaSource".
  static std::string MediaSourceTag();
  /// Tag of the list of engines; `//tags/engines`, built-in "engines".
  static std::string EnginesTag();
  /// Tag of an engine; `//tags/engine`, built-in "engine".
  static std::string EngineTag();
  /// Tag of the list of rules; `//tags/rules`, built-in "rules".
  static std::string RulesTag();
  /// Tag of a rule; `//tags/rule`, built-in "rule".
  static std::string RuleTag();
  /// Tag of the list of event sinks; `//tags/eventSinks`, built-in "eventSinks".
  static std::string EventSinksTag();
  /// Tag of an event sink; `//tags/eventSink`, built-in "eventSink".
  static std::string EventSinkTag();
  /// Tag of a camera preset; `//tags/cameraPreset`, built-in "cameraPreset".
  static std::string CameraPresetTag();

  /// URI of the vendor's namespace; `//namespaces/kestal/url`, built-in
  /// "urn:kestal-com:schema:onvif:analytics:1".
  static std::string KestalNs();

  /// Prefix that queries use for it; `//namespaces/kestal/prefix`, built-in "ka".
  static std::string KestalPrefix();

  /// URI of the ONVIF schema namespace; `//namespaces/onvif/url`, built-in
  /// "http://www.onvif.org/ver10/schema".
  static std::string OnvifNs();

  /// Prefix that queries use for it; `//namespaces/onvif/prefix`, built-in "tt".
  static std::string OnvifPrefix();

  /// Path of the profile that lists the default modules; `//profile4DefaultModules`, built-in
  /// "/Users/Projects/analytics-runtime/Profile4DefaultModules.xml".
  static std::string Profile4DefaultModules();

  /// Text of the first node that `xpath` selects in the settings file, as an integer; the default
  /// if nothing is selected or the text is empty or blank.
  ///
  /// The three free queries are those of a `Document`, from its root element. They ask the file of
  /// the last load, not the stored settings: nothing has a built-in value here. They alone give
  /// `//maxSessions` and `//videoInputFile`.
  static int GetValue(const std::string& xpath, int defaultValue);

  /// Text of the first node that `xpath` selects; empty if nothing is found.
  static std::string GetValue(const std::string& xpath);

  /// Texts of all nodes that `xpath` selects, in document order, empty ones left out.
  static std::vector<std::string> GetValues(const std::string& xpath);

  /// Replaces each reference `${name}` by the variable's value.
  ///
  /// That is the first value of a `<variable name="" value=""/>` of this name, compared exactly, in
  /// a `variables` element of the settings file, or empty. The leftmost reference is replaced first
  /// and the result searched again, so values may hold references. A name runs to the first "}".
  /// "${}" ends the substitution, as does a "${" without "}": what follows stays as it is. A text
  /// without a reference touches no settings and loads nothing.
  ///
  /// A variable whose value leads back to itself never ends and can fill the memory; values that
  /// hold others twice double at each step; `analytics-settingsctl check` finds both. Names are put
  /// into a query unescaped, so a reference can read anything in the settings file: callers must
  /// keep texts from outside the product out.
  static std::string SubstituteVariables(const std::string& text);
};

}  // namespace analytics
