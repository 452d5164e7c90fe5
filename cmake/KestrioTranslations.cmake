# The texts of the program in other languages, one table a language in assets/translations/.

set(KESTRIO_TRANSLATIONS_FOLDER "${PROJECT_SOURCE_DIR}/assets/translations")
# How texts are found in the sources. Line numbers are left out of the tables: they would change with
# every change of the code.
set(KESTRIO_LUPDATE $<TARGET_FILE:Qt6::lupdate> "${PROJECT_SOURCE_DIR}/src" -extensions cpp,h,qml -I "${PROJECT_SOURCE_DIR}/src"
    -tr-function-alias QT_TR_NOOP+=marked -locations none -no-ui-lines -no-obsolete)

# kestrio_translations(<target>): builds the tables into the target as ":/kestrio/translations/kestrio_<code>.qm",
# and makes the target update_translations, which is run by hand and brings the tables up to date with
# the sources. English is the language of the sources; its table holds the plural forms alone.
function(kestrio_translations target)
  set(english "${KESTRIO_TRANSLATIONS_FOLDER}/kestrio_en.ts")
  file(GLOB tables CONFIGURE_DEPENDS "${KESTRIO_TRANSLATIONS_FOLDER}/kestrio_*.ts")
  qt_add_lrelease(${target} TS_FILES ${tables} OPTIONS -silent -nounfinished NO_GLOBAL_TARGET
                  QM_FILES_OUTPUT_VARIABLE compiled)
  qt_add_resources(${target} kestrio_translations PREFIX /kestrio/translations BASE "${CMAKE_CURRENT_BINARY_DIR}"
                   FILES ${compiled})
  list(REMOVE_ITEM tables "${english}")
  add_custom_target(update_translations
                    COMMAND ${KESTRIO_LUPDATE} -ts ${tables}
                    COMMAND ${KESTRIO_LUPDATE} -pluralonly -ts "${english}" VERBATIM)
endfunction()
