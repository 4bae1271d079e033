/** @file
 * The whole interface of zantlog_3.dll.
 */
#pragma once

#include "zantlog/catalog.h"
#include "zantlog/config.h"
#include "zantlog/config_store.h"
#include "zantlog/context.h"
#include "zantlog/discovery.h"
#include "zantlog/dispatch.h"
#include "zantlog/event_log.h"
#include "zantlog/export.h"
#include "zantlog/handle.h"
#include "zantlog/localizer.h"
#include "zantlog/log_file.h"
#include "zantlog/logging.h"
#include "zantlog/message.h"
#include "zantlog/os_layer.h"
#include "zantlog/property_store.h"
#include "zantlog/query.h"
#include "zantlog/reader.h"
#include "zantlog/rendering.h"
#include "zantlog/results.h"
#include "zantlog/serialization.h"
