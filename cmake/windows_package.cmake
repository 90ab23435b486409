# What a folder of programs for Windows holds besides the programs. The toolkit's libraries lie beside them, so that they
# can be exchanged.
install(FILES packaging/README-WINDOWS.TXT DESTINATION . RENAME README.TXT)
get_filename_component(toolkit ${Qt6_DIR}/../../.. ABSOLUTE)
foreach(library Core Gui Widgets PrintSupport)
    install(FILES ${toolkit}/bin/Qt6${library}.dll DESTINATION .)
endforeach()
install(FILES ${toolkit}/plugins/platforms/qwindows.dll DESTINATION platforms)
install(FILES ${toolkit}/plugins/styles/qwindowsvistastyle.dll DESTINATION styles)
install(FILES ${toolkit}/licences/LGPL-3.0-only.txt ${toolkit}/licences/GPL-3.0-only.txt DESTINATION docs/licences)
