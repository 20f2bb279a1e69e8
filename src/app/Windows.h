// SPDX-License-Identifier: MIT
// All windows of the program. To add one: its include and its name here, its rows in the desk's table of
// ways (TorvaneDesk.cpp), and its own files.
#pragma once

#include "WindowSet.h"
#include "assistant/NewAssistant.h"
#include "core/sellangstartup/SelLangStartUp.h"
#include "core/splash/Splash.h"
#include "gallery/amplicaptura/AmpliCaptura.h"
#include "gallery/compartir/Compartir.h"
#include "mainwindow/Form2.h"
#include "mainwindow/MainFrm.h"
#include "mainwindow/Menuing.h"
#include "mainwindow/Torvette.h"
#include "search/advsearch/AdvSearch.h"
#include "search/searchrom/SearchROM.h"
#include "settings/confgen/ConfGen.h"
#include "settings/confignew/ConfigNew.h"
#include "settings/sellang/SelLang.h"
#include "tagdb/dbinfo/DB_Info.h"
#include "tagdb/editdb/EditDB.h"
#include "toolkit/aboutfrm/Aboutfrm.h"
#include "toolkit/torvmsg/TorvMsg.h"
#include "weblinks/addpersonalweb/AddPersonalWeb.h"
#include "weblinks/url/URL.h"
#include "zipviewer/ZIP_Viewer.h"

namespace torvane {

using Windows = WindowSet<Menuing, SelLangStartUp, Splash, MainFrm, TorvMsg, NewAssistant, ZIP_Viewer, EditDB,
                          DB_Info, Form2, Torvette, SearchROM, AdvSearch, Compartir, AmpliCaptura, ConfigNew,
                          ConfGen, SelLang, Aboutfrm, URL, AddPersonalWeb>;

} // namespace torvane
