// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

/// Marks a class whose operations leave `libanalytics-settings.so`; everything else stays inside.
#define ANALYTICS_API __attribute__((visibility("default")))
