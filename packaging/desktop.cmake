# Installs icons, menu entries, the file type, the thumbnailer and the description for software centres.
# This is part of the installation script; CMakeLists.txt sets the variables.
file(INSTALL ${source}/resources/halvorant_vrktrk.svg DESTINATION ${share}/icons/hicolor/scalable/apps
     RENAME vrktrk.svg)
foreach(size IN ITEMS 16 22 24 32 48 64 128 256)
    execute_process(COMMAND ${rsvg_convert} --width ${size} --height ${size} --output ${build}/vrktrk.png
                            ${source}/resources/halvorant_vrktrk.svg COMMAND_ERROR_IS_FATAL ANY)
    file(INSTALL ${build}/vrktrk.png DESTINATION ${share}/icons/hicolor/${size}x${size}/apps)
endforeach()

# install_translated(KIND FILE FOLDER): installs FILE without its ".in" and with the texts of all
# languages. KIND is desktop or xml; msgfmt knows which texts in such files to translate.
function(install_translated kind file destination)
    string(REGEX REPLACE "\\.in$" "" name ${file})
    configure_file(${source}/packaging/${file} ${build}/${file} @ONLY)
    execute_process(COMMAND ${msgfmt} --${kind} --template ${build}/${file} -d ${build}/../translations
                                   -o ${build}/translated/${name}
                    COMMAND_ERROR_IS_FATAL ANY)
    file(INSTALL ${build}/translated/${name} DESTINATION ${share}/${destination})
endfunction()
file(MAKE_DIRECTORY ${build}/translated)
install_translated(xml vrktrk.xml mime/packages)
install_translated(xml org.example.vrktrk.metainfo.xml.in metainfo)
install_translated(desktop vrktrk.desktop.in applications)
install_translated(desktop vrktrk.show-track.desktop.in applications)
install_translated(desktop vrktrk.write-track.desktop.in applications)
configure_file(${source}/packaging/vrktrk.thumbnailer.in ${build}/vrktrk.thumbnailer @ONLY)
file(INSTALL ${build}/vrktrk.thumbnailer DESTINATION ${share}/thumbnailers)
