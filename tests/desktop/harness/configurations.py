# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The configurations of the programs of a private desktop, in place of the machine's and the user's."""

BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <keep_umask/>
  <listen>unix:path={runtime}/bus</listen>
  <auth>EXTERNAL</auth>
  <servicedir>{services}</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""

SYSTEM_BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <keep_umask/>
  <listen>unix:path={socket}</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""

# Clicks raise and focus windows; no key and no click on the empty desktop does anything.
OPENBOX_CONFIGURATION = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse><focusLast>yes</focusLast></focus>
  <theme><titleLayout>LC</titleLayout></theme>
  <desktops><number>1</number></desktops>
  <keyboard/>
  <mouse>
    <context name="Client">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
    </context>
    <context name="Titlebar">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
      <mousebind button="Left" action="Drag"><action name="Move"/></mousebind>
    </context>
  </mouse>
</openbox_config>
"""

# Tiles windows and knows no key.
I3_CONFIGURATION = """# i3 config file (v4)
font pango:DejaVu Sans 8
focus_follows_mouse no
mouse_warping none
"""

TRAY_CONFIGURATION = """panel_items = FS
panel_monitor = all
panel_position = top center horizontal
panel_size = 100% 28
panel_dock = 0
panel_layer = top
strut_policy = follow_size
autohide = 0
systray_padding = 4 2 4
systray_icon_size = 22
rounded = 0
background_color = #202428 100
panel_background_id = 1
"""

# A bar on top with an empty stretch and then the tray.
XFCE_PANEL_CONFIGURATION = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="28"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/><value type="int" value="2"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-2" type="string" value="systray"/>
  </property>
</channel>
"""

# No key does anything but what a test asks for; what is said at the end tells that sway is ready, and where.
SWAY_CONFIGURATION = """xwayland {xwayland}
output HEADLESS-1 resolution {width}x{height} position 0,0
focus_follows_mouse no
default_border none
input * xkb_layout {layout}
{more}
exec_always printf '%s\\n' "$WAYLAND_DISPLAY" "$SWAYSOCK" "$DISPLAY" "" >{told}
"""

# The layouts of a Plasma user's settings; the first is the one in use.
KWIN_KEYBOARD_CONFIGURATION = """[Layout]
LayoutList={layouts}
Use=true
"""

# KWin looks up the programs of desktop entries by the menu that they are in.
KWIN_MENU_CONFIGURATION = """<!DOCTYPE Menu PUBLIC "-//freedesktop//DTD Menu 1.0//EN"
 "http://www.freedesktop.org/standards/menu-spec/1.0/menu.dtd">
<Menu>
  <Name>Applications</Name>
  <DefaultAppDirs/>
  <DefaultDirectoryDirs/>
  <Include><All/></Include>
</Menu>
"""

# What a start tells is that labwc is ready, and where. Windows of known titles are where the tests look for them.
LABWC_CONFIGURATION = """<?xml version="1.0"?>
<labwc_config>
  <core><decoration>server</decoration><gap>0</gap></core>
  <focus><followMouse>no</followMouse></focus>
  <keyboard>
    <keybind key="W-S-v"><action name="Execute" command="{hot_key_command}"/></keybind>
  </keyboard>
  <mouse><default/></mouse>
  <windowRules>
    <windowRule identifier="*" serverDecoration="no"/>
    {places}
  </windowRules>
</labwc_config>
"""

LABWC_PLACE = """<windowRule title="{title}">
      <action name="MoveTo" x="{x}" y="{y}"/><action name="ResizeTo" width="{width}" height="{height}"/>
    </windowRule>
"""
