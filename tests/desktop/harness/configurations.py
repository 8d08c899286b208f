# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What the parts of a private desktop are told, instead of what the machine or its user has."""

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
