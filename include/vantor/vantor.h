// Everything: include this one header, link vantor::vantor.

#ifndef VANTOR_VANTOR_H
#define VANTOR_VANTOR_H

#include <vantor/COM.h>
#include <vantor/CaptionCtrl.h>
#include <vantor/CommPort.h>
#include <vantor/ContextHelp.h>
#include <vantor/Dialog.h>
#include <vantor/Drawing.h>
#include <vantor/Exceptions.h>
#include <vantor/File.h>
#include <vantor/IniFile.h>
#include <vantor/Library.h>
#include <vantor/LogFile.h>
#include <vantor/LogFont.h>
#include <vantor/Matrix.h>
#include <vantor/Object.h>
#include <vantor/Platform.h>
#include <vantor/Registry.h>
#include <vantor/Shell.h>
#include <vantor/Socket.h>
#include <vantor/Strings.h>
#include <vantor/SystemTime.h>
#include <vantor/Thread.h>
#include <vantor/TipDlg.h>
#include <vantor/Translator.h>
#include <vantor/Variant.h>
#include <vantor/Version.h>
#include <vantor/Window.h>

#endif
