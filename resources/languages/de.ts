<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>words</name>
    <message>
        <location filename="../../resources/About.ui"/>
        <source>About 7306 Loop Manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/About.ui"/>
        <source>Loop Manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdater.ui"/>
        <location filename="../../resources/FirmwareUpdaterProgress.ui"/>
        <source>Firmware Update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdater.ui"/>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <source>Install</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdater.ui"/>
        <source>Install the firmware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdater.ui"/>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <source>Release notes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdaterProgress.ui"/>
        <source>Firmware installation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/FirmwareUpdaterProgress.ui"/>
        <source>Installing firmware. Keep the pedal plugged in.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>7306 Loop Manager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>Connect the pedal to this computer
by USB and switch it on.
Its loops will appear here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>Deselect all loops</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>Direction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>Erase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>Export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>Export tab, computer to pedal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>Import</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>Import tab, pedal to computer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>Its free space shows here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <location filename="../../resources/Menu.ui"/>
        <source>Menu</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>No pedal connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>Plug in your 7306</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>Select all loops</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>Slots marked like this will
replace loops on the pedal.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/MainWindow.ui"/>
        <source>Space in use</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/Menu.ui"/>
        <source>Close menu</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/Progress.ui"/>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/Progress.ui"/>
        <source>Transferred</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <source>Later</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <source>Software Update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../resources/SoftwareUpdate.ui"/>
        <source>Update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Add Loop %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Loop %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Loop %1 name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Loop %1, select</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Overwrite Loop %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../src/slots/slot_description.cpp"/>
        <source>Remove file from loop %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
